// The least that a program of this toolkit can be: a window with a two-column list. The editor's start is measured by
// the start of this one.
#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    QStandardItemModel model(0, 2);
    auto* const list = new QTableView(&window);
    list->setModel(&model);
    window.setCentralWidget(list);
    window.show();
    return QApplication::exec();
}
