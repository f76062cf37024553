// The last handler of what the user asked for.
#pragma once

#include <QString>
#include <functional>

namespace desktop {

// Runs work. What it raises is shown and logged under the name of what was to be done; false then.
bool Guarded(const QString& what, const std::function<void()>& work);

// A box with one line of what went wrong, on the main window, and in the log.
void TellFailure(const QString& what, const QString& reason);

}  // namespace desktop
