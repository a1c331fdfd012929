#include "ui/qtsuono.h"

#include <QFileInfo>
#include <QSoundEffect>
#include <QTimer>

QtSound::QtSound() : effetto_(std::make_unique<QSoundEffect>()) {}

QtSound::~QtSound() = default;

void QtSound::carica(const QString &percorso)
{
    const QFileInfo info(percorso);
    if (percorso.isEmpty() || !info.isFile()) {
        // No file, no sound: suona() then does nothing at all.
        sorgente_.clear();
        effetto_->setSource(QUrl());
        return;
    }
    sorgente_ = QUrl::fromLocalFile(info.absoluteFilePath());
    effetto_->setSource(sorgente_);
    const QUrl atteso = sorgente_;
    QTimer::singleShot(attesaCaricamentoMs, effetto_.get(), [this, atteso] { riprovaSeBloccato(atteso); });
}

// Qt 6.4.2 can leave a sample in Loading for ever when it is requested while
// the loader thread winds down; asking for it afresh once gets it loaded.
void QtSound::riprovaSeBloccato(const QUrl &sorgente)
{
    if (sorgente != sorgente_ || effetto_->status() != QSoundEffect::Loading)
        return;
    effetto_->setSource(QUrl());
    effetto_->setSource(sorgente_);
}

void QtSound::suona()
{
    // play() before the sample is ready just queues the start; with no audio
    // device it plays into nothing. Either way it returns at once.
    if (!sorgente_.isEmpty())
        effetto_->play();
}
