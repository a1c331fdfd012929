#pragma once
#include <QString>
#include <optional>

// All settings and current choices of the program. Colours are decimal text of
// red + 256*green + 65536*blue. Everything starts zero/empty until the start
// screen fills it.
struct Settings {
    QString NomeFile;                 // executable name without folder and extension

    // Choices of the start screen (1-based codes, captions keep the leading blank)
    qint16 TipoEsercizio = 0;
    QString TestoTipoEsercizio;
    qint16 OrdineSimboli = 0;
    QString TestoOrdineSimboli;
    qint16 Livello = 0;
    qint16 NumeroCifre = 0;
    qint16 ValoreMassimo = 0;

    // Appearance, kept in the settings file
    QString ColoreSfondo;
    QString ColoreRiserva;
    QString ColoreCaratteri;
    bool BeepAttivo = false;
    std::optional<bool> ImpostazioneA;   // a variant: empty until read or set
    std::optional<bool> ImpostazioneB;
    QString ColoreScansioneChiaro;
    QString ColoreScansioneScuro;
    qint16 IndiceSfondo = 0;
    qint16 IndiceScansione = 0;
    qint16 IndiceCaratteri = 0;

    // Fixed key colours of the exercise screen, set when it loads
    QString ColoreRiposo;
    QString ColoreFuoco;
};
