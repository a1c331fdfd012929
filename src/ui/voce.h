#pragma once
#include <QString>

// Speech for a pupil who listens: each utterance cancels the one in progress,
// so what is heard is always what the screen shows now.
class IVoce
{
public:
    virtual ~IVoce() = default;
    // Says `testo` at `velocita` (-100..100), after `dopoMs` milliseconds when
    // given (a sound to let finish); returns at once. A later call replaces it.
    virtual void di(const QString &testo, int velocita, int dopoMs = 0) = 0;
};
