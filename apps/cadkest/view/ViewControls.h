// SPDX-License-Identifier: MIT
#pragma once

#include <qnamespace.h>

class QPointF;
class QSize;

class Camera;
struct SceneMesh;

/// What mouse and keyboard do to the camera.
///
/// Dragging turns; with Shift, or by the middle or right button, it moves. The wheel zooms at the
/// pointer. Arrows turn by ten degrees, with Shift they move; + and - zoom; Home fits the scene
/// into the view; 0 looks from a corner, 1 along y, 3 along x, 7 from above.
namespace ViewControls {

void drag(Camera& camera, const QPointF& pixels, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers modifiers, const QSize& size);

/// The angle is the wheel's, in eighths of a degree.
void wheel(Camera& camera, int angle, const QPointF& place, const QSize& size);

/// False when the key means nothing here.
bool key(Camera& camera, int key, Qt::KeyboardModifiers modifiers, const SceneMesh& mesh,
         const QSize& size);

} // namespace ViewControls
