// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// Helps with a machines file that names no host.
namespace MachinesOffer {

/// Shows the problem, a clause, and offers to use this machine or to edit the file. True if the
/// file was changed, so that the set-up should be repeated.
bool ask(const QString& problem, QWidget* window);

} // namespace MachinesOffer
