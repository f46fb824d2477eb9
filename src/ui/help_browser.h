// The page of the help that is shown, in the colours of the desktop and with the words that were searched for.
#pragma once

#include <QStringList>
#include <QTextBrowser>

namespace korvex {

class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent);

    void showPage(const QString& page);
    [[nodiscard]] const QString& page() const { return m_page; }
    /// Words as foldedWords makes them; they stay highlighted on every page until others come.
    void highlight(const QStringList& words);
    void scrollToHighlight();
    /// How much larger than at first the letters are, in steps.
    void zoomTo(int steps);
    [[nodiscard]] int zoom() const { return m_zoom; }

    /// A picture that is not there takes no room, and one that is wider than the window is made to fit.
    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;

signals:
    void pageChanged();

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(const QUrl& address);
    void pageHasChanged(const QUrl& address);
    void applyColours();
    void showHighlights();

    QString m_page;
    QStringList m_words;
    int m_zoom = 0;
};

}  // namespace korvex
