// SPDX-License-Identifier: MIT
// Loads the library that is named into a process that uses Qt's widgets already, and prints the
// seconds that it took.
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLibrary>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QLabel label;
    QLibrary library(QApplication::arguments().value(1));
    QElapsedTimer clock;
    clock.start();
    if (!library.load()) {
        std::fprintf(stderr, "%s\n", qPrintable(library.errorString()));
        return 1;
    }
    std::printf("%.9f\n", static_cast<double>(clock.nsecsElapsed()) / 1e9);
    return 0;
}
