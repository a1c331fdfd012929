// The references the program's start-up is measured against: a bare window,
// or the least window that shows text (one label, one button). It links Qt
// Widgets and nothing else, so it loads only what such a window needs.
//
//   riferimento vuota | etichetta [width height]
//
// bench_avvio gives the one-label window the start screen's size: a window's
// backing store grows with its area (4 bytes a pixel, 2.8 MB at 1000 x 703),
// and the pixels the pupil sees are not what is being compared.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdlib>
#include <cstring>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QWidget finestra;
    if (argc > 1 && std::strcmp(argv[1], "etichetta") == 0) {
        auto *strato = new QVBoxLayout(&finestra);
        strato->addWidget(new QLabel(QStringLiteral("Composizione dei valori di posizione")));
        auto *esci = new QPushButton(QStringLiteral("Esci"));
        QObject::connect(esci, &QPushButton::clicked, &app, &QApplication::quit);
        strato->addWidget(esci);
        if (argc > 3)
            finestra.resize(std::atoi(argv[2]), std::atoi(argv[3]));
    }
    finestra.show();
    return app.exec();
}
