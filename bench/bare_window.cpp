// An empty window of the desktop's toolkit: what the start of the desktop is compared with. With a text as argument the
// window shows that line, for which any program has to find the system's fonts, which an empty window does not ask for.

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    if (argc > 1) {
        new QLabel(QString::fromLocal8Bit(argv[1]), &window);
    }
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
