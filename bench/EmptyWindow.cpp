#include <QApplication>
#include <QLabel>
#include <QMainWindow>

/// What any Qt program takes at the least: a main window of the host's size with nothing in it, or with a word, for
/// which the toolkit finds out what fonts there are.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1)
        window.setCentralWidget(new QLabel(QString::fromLocal8Bit(argv[1]), &window));
    window.resize(900, 700);
    window.show();
    return QApplication::exec();
}
