#pragma once

namespace quillmark {

/// Whether the desktop's settings ask programs for dark colours. Asks a settings service that is
/// running already, over the session bus, for a tenth of a second at most: no bus, no service or no
/// answer means no.
bool desktopPrefersDark();

} // namespace quillmark
