// SPDX-License-Identifier: MIT
#include "HardwareDrawing.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>

namespace {

// One corner of a face or end of a line. Lines have no normal and take their colour unshaded.
struct Vertex
{
    QVector3D position;
    QVector3D normal;
    float paint;
};

// Where the shader finds the members of a vertex.
struct Attribute
{
    const char* name;
    int offset;
    int size;
};

constexpr std::array<Attribute, 3> attributes = {{
    {"position", 0, 3},
    {"normal", sizeof(QVector3D), 3},
    {"paint", 2 * sizeof(QVector3D), 1},
}};

constexpr int faceVertices = 6; // two triangles
constexpr int lineVertices = 2;
constexpr int depthBits = 24;

constexpr const char* vertexShader = R"(
attribute highp vec3 position;
attribute highp vec3 normal;
attribute highp float paint;
uniform highp mat4 projection;
uniform highp mat3 orientation;
uniform highp vec3 light;
uniform highp float ambient;
uniform highp vec3 colours[9];
varying highp vec3 colour;
void main()
{
    gl_Position = projection * vec4(position, 1.0);
    highp float direct = max(0.0, dot(orientation * normal, light));
    highp float brightness = ambient + (1.0 - ambient) * direct;
    colour = colours[int(paint + 0.5)] * (dot(normal, normal) > 0.0 ? brightness : 1.0);
}
)";
static_assert(paintCount == 9, "the shader has as many colours");

constexpr const char* fragmentShader = R"(
varying highp vec3 colour;
void main()
{
    gl_FragColor = vec4(colour, 1.0);
}
)";

QVector3D vectorOf(QRgb colour)
{
    return QVector3D(float(qRed(colour)), float(qGreen(colour)), float(qBlue(colour))) / 255;
}

class VertexList
{
public:
    explicit VertexList(const SceneMesh& mesh) : m_mesh(mesh) {}

    int add(const std::vector<MeshFace>& faces)
    {
        const std::size_t first = vertices.size();
        for (const MeshFace& face : faces) {
            for (const std::size_t corner : {0U, 1U, 2U, 0U, 2U, 3U}) {
                vertices.push_back(
                    {m_mesh.points[face.corners[corner]], face.normal, float(face.paint)});
            }
        }
        return int(first);
    }

    int add(const std::vector<MeshLine>& lines)
    {
        const std::size_t first = vertices.size();
        for (const MeshLine& line : lines) {
            vertices.push_back({m_mesh.points[line.from], QVector3D(), float(line.paint)});
            vertices.push_back({m_mesh.points[line.to], QVector3D(), float(line.paint)});
        }
        return int(first);
    }

    std::vector<Vertex> vertices;

private:
    const SceneMesh& m_mesh;
};

} // namespace

HardwareDrawing::HardwareDrawing()
{
    const bool isLinked =
        m_program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertexShader) &&
        m_program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentShader) &&
        m_program.link();
    if (!isLinked) {
        m_error = tr("OpenGL refuses the shaders: %1").arg(m_program.log().trimmed());
    } else if (!m_buffer.create()) {
        m_error = tr("OpenGL gives no memory");
    }
}

QSurfaceFormat HardwareDrawing::surfaceFormat()
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setDepthBufferSize(depthBits);
    format.setStencilBufferSize(8);
    return format;
}

void HardwareDrawing::draw(const Frame& frame)
{
    QOpenGLFunctions* gl = QOpenGLContext::currentContext()->functions();
    const QVector3D background = vectorOf(frame.colours.background);
    gl->glViewport(0, 0, frame.size.width(), frame.size.height());
    gl->glDepthMask(GL_TRUE);
    gl->glClearColor(background.x(), background.y(), background.z(), 1);
    gl->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    // Whoever painted into this context before may have left anything behind.
    for (const GLenum feature : {GL_BLEND, GL_SCISSOR_TEST, GL_STENCIL_TEST}) {
        gl->glDisable(feature);
    }
    gl->glEnable(GL_DEPTH_TEST);
    gl->glEnable(GL_CULL_FACE);

    m_program.bind();
    m_buffer.bind();
    if (m_mesh != frame.mesh) {
        upload(*frame.mesh);
        m_mesh = frame.mesh;
    }
    setUniforms(frame);
    drawFaces(frame);
    drawLines(frame);
    for (const Attribute& attribute : attributes) {
        m_program.disableAttributeArray(attribute.name);
    }
    m_buffer.release();
    m_program.release();
    gl->glDisable(GL_CULL_FACE);
    gl->glDisable(GL_DEPTH_TEST);
}

void HardwareDrawing::upload(const SceneMesh& mesh)
{
    VertexList list(mesh);
    m_firstTube = list.add(mesh.tubes);
    m_firstSolid = list.add(mesh.solids);
    m_firstCore = list.add(mesh.cores);
    m_firstRib = list.add(mesh.ribs);
    m_firstRing = list.add(mesh.rings);
    m_firstOutline = list.add(mesh.outlines);
    m_buffer.allocate(list.vertices.data(), int(list.vertices.size() * sizeof(Vertex)));
}

void HardwareDrawing::setUniforms(const Frame& frame)
{
    for (const Attribute& attribute : attributes) {
        m_program.enableAttributeArray(attribute.name);
        m_program.setAttributeBuffer(attribute.name, GL_FLOAT, attribute.offset, attribute.size,
                                     sizeof(Vertex));
    }
    std::array<QVector3D, paintCount> colours;
    std::transform(frame.colours.paints.begin(), frame.colours.paints.end(), colours.begin(),
                   vectorOf);
    m_program.setUniformValueArray("colours", colours.data(), paintCount);
    m_program.setUniformValue("projection",
                              frame.camera.projection(frame.size, frame.mesh->radius));
    m_program.setUniformValue("orientation", frame.camera.orientation().toRotationMatrix());
    m_program.setUniformValue("light", lightDirection());
    m_program.setUniformValue("ambient", ambientLight);
}

void HardwareDrawing::drawFaces(const Frame& frame) const
{
    QOpenGLFunctions* gl = QOpenGLContext::currentContext()->functions();
    const MeshDetail detail(*frame.mesh, frame.camera.pixelsPerUnit(frame.size));
    gl->glDepthFunc(GL_LESS);
    gl->glEnable(GL_POLYGON_OFFSET_FILL);
    gl->glPolygonOffset(float(frame.faceDisplacement), float(frame.faceDisplacement));
    gl->glDrawArrays(GL_TRIANGLES, m_firstTube, int(detail.tubes) * faceVertices);
    gl->glDrawArrays(GL_TRIANGLES, m_firstSolid, int(frame.mesh->solids.size()) * faceVertices);
    gl->glDisable(GL_POLYGON_OFFSET_FILL);
}

void HardwareDrawing::drawLines(const Frame& frame) const
{
    QOpenGLFunctions* gl = QOpenGLContext::currentContext()->functions();
    const SceneMesh& mesh = *frame.mesh;
    const MeshDetail detail(mesh, frame.camera.pixelsPerUnit(frame.size));
    gl->glDepthFunc(GL_LEQUAL);
    gl->glLineWidth(1);
    gl->glDrawArrays(GL_LINES, m_firstCore + int(detail.firstCore) * lineVertices,
                     int(mesh.cores.size() - detail.firstCore) * lineVertices);
    gl->glDrawArrays(GL_LINES, m_firstRib, int(detail.ribs) * lineVertices);
    gl->glDrawArrays(GL_LINES, m_firstRing, int(detail.rings) * lineVertices);
    gl->glDrawArrays(GL_LINES, m_firstOutline, int(mesh.outlines.size()) * lineVertices);
}
