#include <QApplication>
#include <QLabel>
#include <QMainWindow>

/// The minimum start-up of a Qt program: a main window of the host's size, either empty or with a word, for which the
/// toolkit must load the font list.
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
