#include "web/page/Names.h"

#include "web/page/PageContent.h"

#include <array>

namespace quillmark::web {

namespace {

#define QUILLMARK_WEB_NAME(NAME, TEXT) std::string_view(TEXT),

constexpr auto ElementNames = std::to_array({QUILLMARK_WEB_ELEMENTS(QUILLMARK_WEB_NAME)});
constexpr auto AttributeNames = std::to_array({QUILLMARK_WEB_ATTRIBUTES(QUILLMARK_WEB_NAME)});

#undef QUILLMARK_WEB_NAME

} // namespace

PlaceName placeName(std::uint16_t place) {
    return {ElementNames.at(place >> 8U), AttributeNames.at(place & 0xFFU)};
}

} // namespace quillmark::web
