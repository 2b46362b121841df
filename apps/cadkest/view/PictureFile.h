#ifndef PICTUREFILE_H
#define PICTUREFILE_H

class QImage;
class QString;

namespace cad {

/// Writes a picture as PNG and puts it in place of an older one once all of it is written. Returns
/// what went wrong, with the file's name; empty when nothing did.
QString savePicture(const QImage& image, const QString& path);

} // namespace cad

#endif
