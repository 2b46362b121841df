#ifndef SCENES_H
#define SCENES_H

#include <Renderer.h>
#include <Scene.h>

#include <QByteArray>
#include <QMetaType>

Q_DECLARE_METATYPE(cad::Direction)
Q_DECLARE_METATYPE(cad::Frame)

/// The scene of a deck's text.
cad::Scene sceneOfDeck(const QByteArray& deck);

/// A rectangular net of straight wires, about so many of one segment each.
cad::Scene net(int wires);

/// A frame that shows a scene whole.
cad::Frame frameOf(const cad::Scene& scene, cad::Direction direction, const QSize& size);

/// The decks that several tests look at.
namespace Decks {
extern const char* const thickCross;
extern const char* const yagi;
extern const char* const helix;
extern const char* const monopole;
} // namespace Decks

#endif
