// The two-column list of sources: shows the model's marks and changes them by mouse and keyboard.
#pragma once

#include "source_list_model.h"

#include <QElapsedTimer>
#include <QTableView>

namespace korvex {

/// The toolkit's own selection is switched off, for it is quadratic in scattered rows: the marks live in the model.
/// The current row is the toolkit's. Marking: a click or an arrow key marks one row, Shift extends from where the last
/// one was, Ctrl adds and takes away, Ctrl+A marks all, Ctrl+Shift+A none, Ctrl+I inverts.
class SourceListView : public QTableView {
    Q_OBJECT

public:
    explicit SourceListView(SourceListModel& model, QWidget* parent = nullptr);

    /// -1: none.
    [[nodiscard]] int currentRow() const { return currentIndex().row(); }

    /// Makes a row the current one without touching the marks; nothing for -1.
    void makeCurrent(int row);

    /// Looks for the typed digits in the number column, wherever the current column is.
    void keyboardSearch(const QString& typed) override;

signals:
    void rowClicked(int row);
    /// Double click or Enter.
    void editRequested();
    void sourceMenuRequested(const QPoint& globalPosition);
    void newSourceMenuRequested();
    void newSourceRequested(int typeId);
    void deleteRequested();
    void invertRequested();
    void markAllRequested();
    void unmarkAllRequested();
    /// A key was handled, or the list lost the focus.
    void statusOutdated();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    bool handleCommandKey(const QKeyEvent& event);
    bool handleSignKey(const QKeyEvent& event);
    bool handlePlainKey(const QKeyEvent& event);
    bool handleControlKey(const QKeyEvent& event);
    bool handleControlShiftKey(const QKeyEvent& event);
    void markByKey(const QKeyEvent& event, int rowBefore);
    void markByPress(int row, Qt::KeyboardModifiers modifiers);
    void markFromAnchor(int row, Qt::KeyboardModifiers modifiers);
    void showSortArrow();

    SourceListModel& m_model;
    int m_anchor = 0;  // where an extension by Shift begins
    bool m_dragging = false;
    QString m_searched;  // digits typed so far
    QElapsedTimer m_sinceTyped;
};

}  // namespace korvex
