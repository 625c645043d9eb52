#pragma once

#include <QWidget>

#include <functional>

namespace quillmark {

/// Runs what the user asked for. A Failure ends here, in a message box over `owner`: nothing may be
/// thrown through the event loop.
void guarded(QWidget* owner, const std::function<void()>& action);

} // namespace quillmark
