#pragma once
// The two curtains that open over the start screen. Widths are kept in twips
// (15 to a pixel) and every tick of the 5 ms timer takes 75 twips off each.
class Tendine
{
public:
    static constexpr int kTwipsPerPixel = 15;
    static constexpr int kPasso = 75;
    static constexpr int kIntervalloMs = 5;
    static constexpr int kChiusa = 10; // narrower than this the curtain is gone

    // Each curtain covers half of a screen `larghezzaTwips` wide; the timer runs.
    void avvia(int larghezzaTwips);

    // One tick. A width that would go below zero ends the tick there, with the
    // widths as they are and the timer still running: false is returned, and
    // every later tick fails the same way.
    bool tick();

    int larghezza1() const { return larghezza1_; }
    int larghezza2() const { return larghezza2_; }
    bool attiva() const { return attiva_; }

    // Pixels on a screen `scala` times its design size.
    static int pixel(int twips, double scala = 1.0);

private:
    int larghezza1_ = 0;
    int larghezza2_ = 0;
    bool attiva_ = false;
};
