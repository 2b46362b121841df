// SPDX-License-Identifier: MIT
#include "PictureCommand.h"

#include "PictureFile.h"
#include "SceneView.h"

#include <FindingPrinter.h>
#include <MarkerPrinter.h>
#include <ModelFile.h>
#include <Preprocessor.h>
#include <VisibleText.h>

#include <QDir>
#include <QFileInfo>

namespace {

QImage drawnPicture(const suite::Model& model, const QString& title, const PictureRequest& request)
{
    const Scene scene = sceneOf(model);
    Frame frame;
    frame.mesh = std::make_shared<SceneMesh>(meshOf(scene, Thickness::Readable));
    frame.size = request.size;
    frame.isSmooth = true;
    frame.colours = request.isDark ? SceneColours::dark() : SceneColours::light();
    frame.camera.lookFrom(request.direction);
    frame.camera.fit(*frame.mesh, frame.size);
    return pictureOf(frame, overlayOf(scene, title));
}

} // namespace

int makePicture(const PictureRequest& request)
{
    const suite::ModelFile modelFile(request.model);
    const suite::Preprocessor preprocessor(modelFile);
    suite::MarkerPrinter printer;
    suite::FindingPrinter findings(printer, modelFile.name());
    findings.print(preprocessor.findings());
    if (preprocessor.findings().hasErrors()) {
        return 1;
    }
    const QString path = request.output.isEmpty() ? modelFile.resultPath(QStringLiteral("png"))
                                                  : QFileInfo(request.output).absoluteFilePath();
    const QString error = writePicture(
        drawnPicture(preprocessor.model(), suite::visibleText(modelFile.name()), request), path);
    if (!error.isEmpty()) {
        findings.print(suite::FindingKind::ResultNotWritten, {error});
        return 1;
    }
    printer.print(suite::Marker::File, QDir::toNativeSeparators(path));
    return 0;
}
