// SPDX-License-Identifier: MIT
#include "SoftwarePicture.h"

#include <QtConcurrent>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace {

constexpr int partCount = 8;  // of the elements, sorted into bands at the same time
constexpr int bandCount = 16; // of the picture, painted at the same time

// Calls a function with 0 to below count, on all cores; returns when all calls have.
void forEachAtOnce(int count, const std::function<void(int)>& function)
{
    std::vector<int> numbers(std::size_t(count), 0);
    std::iota(numbers.begin(), numbers.end(), 0);
    QtConcurrent::blockingMap(numbers, [&](int number) { function(number); });
}

// The begin and end of one of the parts of so many things.
std::pair<std::size_t, std::size_t> partOf(std::size_t count, int part)
{
    return {count * std::size_t(part) / partCount, count * std::size_t(part + 1) / partCount};
}

QRgb shaded(QRgb colour, float light)
{
    const auto part = [light](int value) { return int(std::lround(float(value) * light)); };
    return qRgb(part(qRed(colour)), part(qGreen(colour)), part(qBlue(colour)));
}

} // namespace

QImage SoftwarePicture::draw(const Frame& frame, int enlargement)
{
    m_size = frame.size * enlargement;
    QImage image(m_size, QImage::Format_RGB32);
    if (image.isNull()) {
        return image;
    }
    m_bandHeight = (m_size.height() + bandCount - 1) / bandCount;
    m_bins.resize(std::size_t(partCount) * bandCount);
    m_rasters.resize(bandCount);
    project(frame, m_size);
    forEachAtOnce(partCount, [&](int part) {
        for (int band = 0; band < bandCount; ++band) {
            bin(part, band).faces.clear();
            bin(part, band).lines.clear();
        }
        sortFaces(frame, part);
        sortLines(frame, part);
    });
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());
    forEachAtOnce(bandCount, [&](int band) { paintBand(pixels, frame, band, enlargement); });
    return image;
}

void SoftwarePicture::project(const Frame& frame, const QSize& size)
{
    const SceneMesh& mesh = *frame.mesh;
    QMatrix4x4 window;
    window.scale(float(size.width()) / 2, -float(size.height()) / 2, 0.5F);
    window.translate(1, -1, 1);
    const QMatrix4x4 matrix = window * frame.camera.projection(frame.size, mesh.radius);
    m_points.resize(mesh.points.size());
    forEachAtOnce(partCount, [&](int part) {
        const float* m = matrix.constData(); // by columns
        const auto [begin, end] = partOf(mesh.points.size(), part);
        for (std::size_t i = begin; i < end; ++i) {
            const QVector3D& p = mesh.points[i];
            m_points[i] = {m[0] * p.x() + m[4] * p.y() + m[8] * p.z() + m[12],
                           m[1] * p.x() + m[5] * p.y() + m[9] * p.z() + m[13],
                           m[2] * p.x() + m[6] * p.y() + m[10] * p.z() + m[14]};
        }
    });
}

void SoftwarePicture::sortFaces(const Frame& frame, int part)
{
    const SceneMesh& mesh = *frame.mesh;
    const MeshDetail detail(mesh, frame.camera.pixelsPerUnit(frame.size));
    QMatrix4x4 turned;
    turned.rotate(frame.camera.orientation());
    const auto addPart = [&](const std::vector<MeshFace>& faces, std::size_t count) {
        const auto [begin, end] = partOf(count, part);
        for (std::size_t i = begin; i < end; ++i) {
            addFace(faces[i], turned, frame.colours, part);
        }
    };
    addPart(mesh.tubes, detail.tubes);
    addPart(mesh.solids, mesh.solids.size());
}

void SoftwarePicture::sortLines(const Frame& frame, int part)
{
    const SceneMesh& mesh = *frame.mesh;
    const MeshDetail detail(mesh, frame.camera.pixelsPerUnit(frame.size));
    const auto addPart = [&](const std::vector<MeshLine>& lines, std::size_t first,
                             std::size_t last) {
        const auto [begin, end] = partOf(last - first, part);
        for (std::size_t i = first + begin; i < first + end; ++i) {
            addLine(lines[i], frame.colours, part);
        }
    };
    addPart(mesh.cores, detail.firstCore, mesh.cores.size());
    addPart(mesh.ribs, 0, detail.ribs);
    addPart(mesh.rings, 0, detail.rings);
    addPart(mesh.outlines, 0, mesh.outlines.size());
}

void SoftwarePicture::addFace(const MeshFace& face, const QMatrix4x4& turned,
                              const SceneColours& colours, int part)
{
    RasterFace seen;
    for (std::size_t i = 0; i < 4; ++i) {
        seen.corners[i] = m_points[face.corners[i]];
    }
    const auto& [a, b, c, d] = seen.corners;
    // Twice the area, negative where the corners run anticlockwise, since y points down.
    if ((c.x - a.x) * (d.y - b.y) - (c.y - a.y) * (d.x - b.x) >= 0) {
        return;
    }
    const float left = std::min({a.x, b.x, c.x, d.x});
    const float right = std::max({a.x, b.x, c.x, d.x});
    const float top = std::min({a.y, b.y, c.y, d.y});
    const float bottom = std::max({a.y, b.y, c.y, d.y});
    if (right < 0 || left > float(m_size.width()) || bottom < 0 || top > float(m_size.height())) {
        return;
    }
    seen.colour = shaded(colours[face.paint], brightness(turned.mapVector(face.normal)));
    const int last = bandOf(bottom);
    for (int band = bandOf(top); band <= last; ++band) {
        bin(part, band).faces.push_back(seen);
    }
}

void SoftwarePicture::addLine(const MeshLine& line, const SceneColours& colours, int part)
{
    const RasterLine seen = {m_points[line.from], m_points[line.to], colours[line.paint]};
    const auto [left, right] = std::minmax(seen.from.x, seen.to.x);
    const auto [top, bottom] = std::minmax(seen.from.y, seen.to.y);
    const float margin = 2; // lines have a width
    if (right < -margin || left > float(m_size.width()) + margin || bottom < -margin ||
        top > float(m_size.height()) + margin) {
        return;
    }
    const int last = bandOf(bottom + margin);
    for (int band = bandOf(top - margin); band <= last; ++band) {
        bin(part, band).lines.push_back(seen);
    }
}

void SoftwarePicture::paintBand(QRgb* pixels, const Frame& frame, int band, int lineWidth)
{
    const int first = std::min(band * m_bandHeight, m_size.height());
    const int end = std::min(first + m_bandHeight, m_size.height());
    Raster& raster = m_rasters[std::size_t(band)];
    raster.begin(pixels + std::size_t(first) * std::size_t(m_size.width()), m_size.width(), first,
                 end, frame.colours.background);
    for (int part = 0; part < partCount; ++part) {
        for (const RasterFace& face : bin(part, band).faces) {
            raster.paint(face, float(frame.faceDisplacement));
        }
    }
    for (int part = 0; part < partCount; ++part) {
        for (const RasterLine& line : bin(part, band).lines) {
            raster.paint(line, lineWidth);
        }
    }
}

int SoftwarePicture::bandOf(float y) const
{
    return int(std::clamp(y / float(m_bandHeight), 0.0F, float(bandCount - 1)));
}

SoftwarePicture::Bin& SoftwarePicture::bin(int part, int band)
{
    return m_bins[std::size_t(part) * bandCount + std::size_t(band)];
}
