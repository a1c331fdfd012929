#include "app/programma.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("composizione"));
    Programma programma;
    programma.avvia();
    return app.exec();
}
