#include "EditorWindow.h"

#include <ApplicationIdentity.h>
#include <Services.h>
#include <SuiteFolders.h>

#include <FindingPrinter.h>
#include <MarkerPrinter.h>
#include <ModelFile.h>
#include <Preprocessor.h>

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int exitErrors = 1;
constexpr int exitBadCommandLine = 2;

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Edits models and checks them while they are edited.\n\nExit code of "
                       "--non-interactive: 0 no errors, 1 errors, 2 wrong command line."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QStringLiteral("non-interactive"),
                      QStringLiteral("Check the models as prekest does, without a window.")});
    parser.addPositionalArgument(QStringLiteral("model"), QStringLiteral("Model (*.nec)."),
                                 QStringLiteral("[model...]"));
}

// True when there is nothing against the model.
bool check(const QString& model)
{
    const suite::ModelFile file(model);
    const suite::Preprocessor preprocessor(file);
    suite::MarkerPrinter printer;
    suite::FindingPrinter(printer, file.name()).print(preprocessor.findings());
    return !preprocessor.findings().hasErrors() && !preprocessor.findings().hasFatalErrors();
}

int checkAll(const QStringList& models)
{
    if (models.isEmpty()) {
        std::fputs("editkest: no model given\n", stderr);
        return exitBadCommandLine;
    }
    bool isGood = true;
    for (const QString& model : models) {
        isGood = check(model) && isGood;
    }
    return isGood ? 0 : exitErrors;
}

// These need no window, and so no display.
bool isNonInteractive(int argc, char* argv[])
{
    return std::any_of(argv + 1, argv + std::max(argc, 1), [](const char* argument) {
        constexpr const char* words[] = {"--non-interactive", "--help", "-h", "--version", "-v"};
        return std::any_of(std::begin(words), std::end(words), [argument](const char* word) {
            return std::strcmp(argument, word) == 0;
        });
    });
}

int showWindow(const QStringList& models)
{
    if (models.size() > 1) {
        std::fputs("editkest: one model at a time in a window\n", stderr);
        return exitBadCommandLine;
    }
    const QString problem = SuiteFolders::problem();
    if (!problem.isEmpty()) {
        std::fprintf(stderr, "editkest: %s\n", qPrintable(problem));
        return exitBadCommandLine;
    }
    EditorWindow window(models.value(0));
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isBatch = isNonInteractive(argc, argv);
    if (isBatch) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("editkest"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EDITKEST_VERSION));

    const Services services({QStringLiteral("editkest"), QStringLiteral("models/dipole.nec")},
                            isBatch);
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        std::fprintf(stderr, "editkest: %s\nTry \"editkest --help\".\n",
                     qPrintable(parser.errorText()));
        return exitBadCommandLine;
    }
    parser.process(application); // the help and the version
    return parser.isSet(QStringLiteral("non-interactive"))
               ? checkAll(parser.positionalArguments())
               : showWindow(parser.positionalArguments());
}
