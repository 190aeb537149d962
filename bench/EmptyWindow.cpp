#include <QApplication>
#include <QMainWindow>

/// What any Qt program takes at the least: a main window of the host's size with nothing in it.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(900, 700);
    window.show();
    return QApplication::exec();
}
