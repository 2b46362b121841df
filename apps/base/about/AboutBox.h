#pragma once

class QString;
class QWidget;

/// What an application is, and what it is made of.
namespace AboutBox {

/// Shows it until the user closes it. The purpose is a sentence. The engine is asked for its
/// version meanwhile.
void show(QWidget& window, const QString& purpose);

} // namespace AboutBox
