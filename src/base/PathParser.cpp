#include "base/PathParser.h"

namespace quillmark {

namespace {

std::size_t nameStartOf(std::string_view spec) {
    const std::size_t separator = spec.find_last_of("\\/");
    if (separator != std::string_view::npos) {
        return separator + 2;
    }
    const std::size_t colon = spec.find(':');
    return colon == std::string_view::npos ? 1 : colon + 2;
}

} // namespace

void PathParser::FileSpec(std::string_view spec) {
    spec_ = spec;
    nameStart_ = nameStartOf(spec);
}

std::string_view PathParser::Extension() const {
    const std::size_t dot = spec_.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : spec_.substr(dot + 1);
}

std::string_view PathParser::BaseName() const {
    const std::string_view name = FileName();
    return name.substr(0, name.find('.'));
}

std::string_view PathParser::HostPath() const {
    const std::size_t server = spec_.find("//");
    if (server == std::string_view::npos) {
        return {};
    }
    const std::size_t path = spec_.find('/', server + 2);
    return path == std::string_view::npos ? std::string_view() : spec_.substr(path + 1);
}

} // namespace quillmark
