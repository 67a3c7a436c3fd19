// The start-up yardstick: a bare Qt Widgets window, shown once and closed.
#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    QApplication::processEvents();
    return 0;
}
