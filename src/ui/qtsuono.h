#pragma once
#include "ui/suono.h"
#include <QUrl>
#include <memory>

class QSoundEffect;

// The right-answer sound through QSoundEffect, which decodes the wave file
// itself and never blocks the caller.
class QtSound final : public ISound
{
public:
    QtSound();
    ~QtSound() override;
    QtSound(const QtSound &) = delete;
    QtSound &operator=(const QtSound &) = delete;

    void carica(const QString &percorso) override;
    void suona() override;

    // How long a load may stay pending before it is retried once.
    static constexpr int attesaCaricamentoMs = 3000;

private:
    void riprovaSeBloccato(const QUrl &sorgente);

    std::unique_ptr<QSoundEffect> effetto_;
    QUrl sorgente_;
};
