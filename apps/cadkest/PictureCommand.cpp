#include "PictureCommand.h"

#include "CommandLine.h"
#include "PictureFile.h"

#include <FindingPrinter.h>
#include <MarkerPrinter.h>
#include <ModelFile.h>
#include <Preprocessor.h>
#include <VisibleText.h>

#include <QDir>
#include <QFileInfo>

namespace {

QImage drawnPicture(const suite::Model& model, const QString& title, const CommandLine& commandLine)
{
    const Scene scene = sceneOf(model);
    Frame frame;
    frame.mesh = std::make_shared<SceneMesh>(meshOf(scene, Thickness::Readable));
    frame.size = commandLine.size;
    frame.isSmooth = true;
    frame.colours = commandLine.isDark ? SceneColours::dark() : SceneColours::light();
    frame.camera.lookFrom(commandLine.direction);
    frame.camera.fit(*frame.mesh, frame.size);
    return pictureOf(frame, overlayOf(scene, title));
}

} // namespace

int makePicture(const CommandLine& commandLine)
{
    const suite::ModelFile modelFile(commandLine.model);
    const suite::Preprocessor preprocessor(modelFile);
    suite::MarkerPrinter printer;
    suite::FindingPrinter findings(printer, modelFile.name());
    findings.print(preprocessor.findings());
    if (preprocessor.findings().hasErrors()) {
        return 1;
    }
    const QString path = commandLine.output.isEmpty()
                             ? modelFile.resultPath(QStringLiteral("png"))
                             : QFileInfo(commandLine.output).absoluteFilePath();
    const QString error = writePicture(
        drawnPicture(preprocessor.model(), suite::visibleText(modelFile.name()), commandLine),
        path);
    if (!error.isEmpty()) {
        findings.print(suite::FindingKind::ResultNotWritten, {error});
        return 1;
    }
    printer.print(suite::Marker::File, QDir::toNativeSeparators(path));
    return 0;
}
