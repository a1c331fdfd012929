#pragma once
#include <QString>

// The program's own name and contact lines, shown by the about box.
namespace Versione {
QString nome();
QString versione();
QString contatti();
}
