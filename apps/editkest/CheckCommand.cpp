// SPDX-License-Identifier: MIT
#include "CheckCommand.h"

#include <FindingPrinter.h>
#include <MarkerPrinter.h>
#include <ModelFile.h>
#include <Preprocessor.h>

namespace {

constexpr int exitErrors = 1;

// Whether the model has no errors.
bool checkModel(const QString& model)
{
    const suite::ModelFile file(model);
    const suite::Preprocessor preprocessor(file);
    suite::MarkerPrinter printer;
    suite::FindingPrinter(printer, file.name()).print(preprocessor.findings());
    return !preprocessor.findings().hasErrors() && !preprocessor.findings().hasFatalErrors();
}

} // namespace

int checkModels(const QStringList& models)
{
    bool isGood = true;
    for (const QString& model : models) {
        isGood = checkModel(model) && isGood;
    }
    return isGood ? 0 : exitErrors;
}
