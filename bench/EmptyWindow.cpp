// What any Qt Widgets program costs: one empty window of the application's size.

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(1120, 900);
    window.show();
    return QApplication::exec();
}
