// SPDX-License-Identifier: MIT
#pragma once

class QIcon;
class QString;

/// What the process dialog gets from the application's services. Each asserts that its service
/// exists.
namespace common_ProcessDialogServices {

/// The suite's icon of that name; a null icon when there is none.
QIcon icon(const char* name);

/// The arrows of the details button, for the checked and the unchecked state. Asserts that both
/// pictures exist.
QIcon detailsIcon();

QString installationDirectory();
bool isNonInteractive();

} // namespace common_ProcessDialogServices
