#include "printing/frmsceltastampante.h"
#include "stato/stato.h"
#include "ui/confine.h"
#include "ui/schermi.h"
#include "ui/stampante.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
const QString aCapo = QStringLiteral("\r\n");
}

frmSceltaStampante::frmSceltaStampante(Stato &stato, QWidget *parent)
    : QWidget(parent, Qt::Window), stato_(stato)
{
    setObjectName(QStringLiteral("frmSceltaStampante"));
    setWindowTitle(QStringLiteral("Scegli la stampante"));
    resize(420, 270);

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setAccessibleName(QStringLiteral("Stampanti installate"));
    Combo1->setGeometry(30, 24, 360, 30);

    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(30, 72, 360, 56);
    Label1->setWordWrap(true);

    Label2 = new QLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setGeometry(30, 136, 360, 56);
    Label2->setWordWrap(true);

    Command2 = new QPushButton(QStringLiteral("C H I U D I"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setAccessibleName(QStringLiteral("Chiudi"));
    Command2->setGeometry(130, 210, 160, 40);

    connect(Combo1, &QComboBox::activated, this, [this] { confine([this] { Combo1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, [this] {
        if (stato_.servizi.schermi)
            stato_.servizi.schermi->chiudi(Schermo::SceltaStampante);
    });

    // With no printer nothing can be picked, and Label2 never speaks: its
    // place tells where the pages go instead.
    lblCartella = new QLabel(this);
    lblCartella->setObjectName(QStringLiteral("lblCartella"));
    lblCartella->setGeometry(30, 130, 360, 76); // four lines, the path's own among them
    lblCartella->setWordWrap(true);
    lblCartella->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblCartella->hide();

    confine([this] {
        ElencaStampanti();
        MostraPredefinita();
    });
    if (Combo1->count() == 0) {
        const QString testo = QStringLiteral("Nessuna stampante installata: le pagine diventano file PDF nella cartella ") +
                              aCapo + QDir::toNativeSeparators(QDir::currentPath());
        lblCartella->setAccessibleName(testo);
        // A path has no blanks to wrap at: it may break after any separator.
        lblCartella->setText(QString(testo).replace(QDir::separator(), QString(QDir::separator()) + QChar(0x200B)));
        lblCartella->show();
    }
}

void frmSceltaStampante::ElencaStampanti()
{
    IPrinter *p = stato_.servizi.stampante;
    if (!p)
        return;
    {
        const QSignalBlocker blocca(Combo1);
        Combo1->addItems(p->printers());
    }
    // Selecting the first entry counts as a click, as a user's would.
    if (Combo1->count() > 0) {
        Combo1->setCurrentIndex(0);
        Combo1_Click();
    }
}

void frmSceltaStampante::MostraPredefinita()
{
    IPrinter *p = stato_.servizi.stampante;
    Label1->setText(QStringLiteral("La stampante predefinita è ") + aCapo + (p ? p->currentPrinter() : QString()));
}

void frmSceltaStampante::Combo1_Click()
{
    // The first click of the run is the one raised by the screen's own
    // opening: it only arms the flag.
    if (!stato_.fogli.SceltaStampanteArmata) {
        stato_.fogli.SceltaStampanteArmata = true;
        return;
    }
    IPrinter *p = stato_.servizi.stampante;
    if (!p)
        return;
    const QString scelta = Combo1->currentText();
    for (const QString &nome : p->printers()) {
        if (nome == scelta) {
            p->setCurrentPrinter(nome);
            break;
        }
    }
    Label2->setText(QStringLiteral("La stampante scelta è ") + aCapo + p->currentPrinter());
}
