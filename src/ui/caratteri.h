#pragma once
// The screens' design face, Arial, in points (or in pixels, where a text must
// fit its box whatever the screen's DPI).
#include <QFont>

QFont FontArial(int punti, bool grassetto = false);
QFont FontArialPixel(int pixel, bool grassetto = false);
