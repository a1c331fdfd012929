#include "app/frmautore.h"

#include "app/versione.h"
#include "ui/caratteri.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

FrmAutore::FrmAutore(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmAutore"));
    setWindowTitle(QStringLiteral("Autore"));
    setModal(true);

    const QFont grande = FontArial(20, true);
    const QFont normale = FontArial(13);

    auto *nome = new QLabel(QStringLiteral("%1 %2").arg(Versione::nome(), Versione::versione()), this);
    nome->setObjectName(QStringLiteral("lblNome"));
    nome->setFont(grande);
    nome->setAlignment(Qt::AlignCenter);
    auto *contatti = new QLabel(Versione::contatti(), this);
    contatti->setObjectName(QStringLiteral("lblContatti"));
    contatti->setFont(normale);
    contatti->setAlignment(Qt::AlignCenter);
    contatti->setTextInteractionFlags(Qt::TextSelectableByMouse);

    chiudi_ = new QPushButton(QStringLiteral("Chiudi"), this);
    chiudi_->setObjectName(QStringLiteral("cmdChiudi"));
    chiudi_->setAccessibleName(QStringLiteral("Chiudi"));
    chiudi_->setFont(grande);
    chiudi_->setMinimumSize(200, 60);
    chiudi_->setDefault(true);
    connect(chiudi_, &QPushButton::clicked, this, &QDialog::accept);

    auto *l = new QVBoxLayout(this);
    l->setContentsMargins(30, 24, 30, 24);
    l->setSpacing(18);
    l->addWidget(nome);
    l->addWidget(contatti);
    l->addWidget(chiudi_, 0, Qt::AlignHCenter);

    QPalette p = palette();
    p.setColor(QPalette::Window, QColor(255, 240, 225));
    setPalette(p);
    setAutoFillBackground(true);
}
