// SPDX-License-Identifier: MIT
#pragma once

#include <Renderer.h>
#include <Scene.h>

#include <QByteArray>
#include <QMetaType>

Q_DECLARE_METATYPE(Direction)
Q_DECLARE_METATYPE(Frame)

/// The scene of a deck's text.
Scene sceneOfDeck(const QByteArray& deck);

/// A rectangular net of straight wires, about so many of one segment each.
Scene net(int wires);

/// A frame that shows a scene whole.
Frame frameOf(const Scene& scene, Direction direction, const QSize& size);

/// The decks that several tests look at.
namespace Decks {
extern const char* const thickCross;
extern const char* const yagi;
extern const char* const helix;
extern const char* const monopole;
} // namespace Decks
