// SPDX-License-Identifier: MIT
#pragma once

class QImage;
class QString;

/// Writes a picture as PNG and puts it in place of an older one once all of it is written. Returns
/// what went wrong, with the file's name; empty when nothing did.
QString writePicture(const QImage& image, const QString& path);
