#include "report/formats/JsonText.h"

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using Json = nlohmann::json;

/// JSON lets U+007F to U+009F stand as they are; on a terminal they would steer it.
void escapeUpperControls(std::string& json) {
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto byte = static_cast<unsigned char>(json[i]);
        const unsigned next = i + 1 < json.size() ? static_cast<unsigned char>(json[i + 1]) : 0;
        if (byte == 0x7F) {
            json.replace(i, 1, "\\u007f");
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            const char* const tens = next < 0x90 ? "8" : "9";
            json.replace(i, 2, std::string("\\u00") + tens + "0123456789abcdef"[next % 16]);
        }
    }
}

} // namespace

std::string jsonText(std::string_view bytes) {
    std::string json = Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace);
    escapeUpperControls(json);
    return json;
}

std::string jsonTextOrNull(std::string_view bytes) {
    return bytes.empty() ? "null" : jsonText(bytes);
}

std::string jsonStatus(std::uint16_t status) {
    return status == 0 ? "null" : std::to_string(status);
}

std::string jsonAddress(const AskedAddress& asked) {
    return "{\"address\": " + jsonText(asked.address) +
           ", \"verdict\": " + jsonText(asked.verdict ? nameOf(*asked.verdict) : "sound") +
           ", \"status\": " + jsonStatus(asked.status) +
           ", \"leadsTo\": " + jsonTextOrNull(asked.leadsTo) + "}";
}

} // namespace quillmark
