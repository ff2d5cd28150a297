#include "desktop/WebEngine.h"

#include <QApplication>

int main(int argc, char** argv) {
    quillon::prepareWebEngine();
    const QApplication application(argc, argv);
    return 0;
}
