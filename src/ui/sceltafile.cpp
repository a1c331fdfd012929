#include "ui/sceltafile.h"

#include <QApplication>
#include <QFileDialog>

QString QtSceltaFile::salvaCome(const QString &titolo, const QString &proposto)
{
    // Qt's own dialog, not the desktop's: its keys are reached with Tab, like
    // every other loose button of the program, and it looks the same in
    // every school.
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), titolo, proposto,
                                        QStringLiteral("Tabelle CSV (*.csv);;Tutti i file (*)"), nullptr,
                                        QFileDialog::DontUseNativeDialog);
}
