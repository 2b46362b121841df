#pragma once

class QString;
class QWidget;

/// What a user can do at once about a machines file that names no host.
namespace MachinesOffer {

/// Shows the problem, a clause, and offers to use this machine, or to change the file. True when
/// the file was changed and the run is worth another try.
bool isTaken(const QString& problem, QWidget* window);

} // namespace MachinesOffer
