// SPDX-License-Identifier: MIT
#include "ModelReader.h"

#include <ModelFile.h>
#include <Preprocessor.h>

namespace {

QString textOf(const suite::Finding& finding)
{
    return finding.place().behind(finding.reason);
}

} // namespace

ReadModel readModel(const QString& name)
{
    const suite::ModelFile file(name);
    const suite::Preprocessor preprocessor(file);
    ReadModel result;
    result.path = file.path();
    result.scene = sceneOf(preprocessor.model());
    result.scene.isCut = preprocessor.findings().contains(suite::FindingKind::TooManySegments);
    const auto findings = preprocessor.findings().sorted();
    for (const suite::Finding& finding : findings) {
        const suite::Severity severity = finding.severity();
        if (severity == suite::Severity::Fatal || severity == suite::Severity::Error) {
            result.errors.append(textOf(finding));
        }
    }
    return result;
}
