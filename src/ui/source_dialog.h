// What the editors of the three types of sources have in common: tabs, fields, buttons, and the way of the values.
#pragma once

#include "shell.h"
#include "source_editor.h"

#include <QDialog>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace korvex {

class FreePlacement;
class uscPopis;
class uscPrach;

/// Holds copies of a source's values while it is open. Nothing typed is refused on Ok: every field is taken as it
/// reads, an empty one as 0; only a number out of range keeps the editor open, with everything that was typed.
class SourceDialog : public QDialog {
    Q_OBJECT

public:
    /// Shows the values until the user leaves the editor. True when it was left by Ok: then values holds what was
    /// edited, but for the number and the stack number.
    [[nodiscard]] bool edit(SourceValues& values);

    /// For a source that got no number of its own: it can be typed, and is edited like the other values.
    void letNumberBeTyped();

    void done(int result) override;

protected:
    /// The last three are what sets one type's form apart: its name and caption, and which keys its parameters take.
    SourceDialog(Shell& shell, QWidget& owner, const char* objectName, const QString& caption, bool (*acceptsKey)(int));

    /// A field in the next row of the parameters, with the label before it.
    void addParameter(const QString& caption);
    /// The same with another widget in the label's place.
    void addParameter(QWidget& inPlaceOfLabel);
    /// After the last parameter: adds a widget beside the field of a parameter, or below all of them.
    void addBeside(std::size_t parameter, QWidget& widget);
    void addBelow(QWidget& widget);
    /// After all parameters were added: adds the dust page and the buttons and restores where the window was left last.
    void finish(const QString& helpCaption);

    [[nodiscard]] Shell& shell() const { return m_shell; }
    [[nodiscard]] uscPopis& description() const { return *uscPopis1; }
    [[nodiscard]] QLineEdit& tPar(std::size_t index) const { return *m_parameters.at(index); }
    [[nodiscard]] QLabel& lbPar(std::size_t index) const { return *m_labels.at(index); }
    /// The page of the parameters, the parent of their widgets.
    [[nodiscard]] QWidget& parameterPage() const { return *m_parameterPage; }

    /// The number typed for a parameter, see fieldSingle; 0 for a field that is switched off.
    [[nodiscard]] float parameter(std::size_t index) const;
    void showParameter(std::size_t index, float value);

    void keyPressEvent(QKeyEvent* event) override;

    virtual void fill(const SourceValues& values);
    virtual void readBack(SourceValues& values);

private:
    QWidget* makeDustPage();
    void addParameterField(QWidget& before);
    QHBoxLayout* makeButtons(const QString& helpCaption);
    void connectPages();
    void takeOver();
    void focusFirstField();
    /// What the user can have changed, as texts: reading values back would fill fields, and can fail.
    [[nodiscard]] QStringList typedTexts();
    void leaveByEscape();

    Shell& m_shell;
    bool (*m_acceptsKey)(int);
    FreePlacement* m_placement;
    SourceValues m_values;
    QStringList m_shownTexts;  // typedTexts before the first key
    bool m_isNumberTyped = false;

    QTabWidget* SSTab1;  // NOLINT(readability-identifier-naming)
    uscPopis* uscPopis1;
    uscPrach* uscPrach1 = nullptr;
    QWidget* m_parameterPage;
    QGridLayout* m_parameterLayout;
    std::vector<QLineEdit*> m_parameters;
    std::vector<QLabel*> m_labels;  // none where something else stands in a label's place
    QPushButton* cbOK = nullptr;
};

}  // namespace korvex
