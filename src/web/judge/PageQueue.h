#pragma once

#include "base/OrderedQueue.h"
#include "web/judge/JudgedPage.h"

namespace quillmark::web {

/// The pages to be judged, handed out in the order of their discovery.
using PageQueue = OrderedQueue<PageTask, JudgedPage>;

} // namespace quillmark::web
