#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget w;
    w.setWindowTitle(QStringLiteral("COMPOSIZIONE"));
    w.resize(800, 600);
    w.show();
    return app.exec();
}
