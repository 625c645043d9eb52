#include "report/JsonText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using Json = nlohmann::json;

struct Span {
    std::uint32_t first;
    std::uint32_t last;
};

/// Characters that JSON allows as they are, but that on a terminal control it, change the direction
/// of the text around them, or end a line.
constexpr std::array<Span, 6> Steering = {{{0x7F, 0x9F},
                                           {0x61C, 0x61C},
                                           {0x200E, 0x200F},
                                           {0x2028, 0x202E},
                                           {0x2066, 0x2069},
                                           {0xFEFF, 0xFEFF}}};

bool steers(std::uint32_t codePoint) {
    return std::any_of(Steering.begin(), Steering.end(), [codePoint](const Span& span) {
        return codePoint >= span.first && codePoint <= span.last;
    });
}

/// The character at byte `i` of valid UTF-8, and how many bytes it has. A character of four bytes
/// never controls anything: U+10000 stands for all of them.
std::pair<std::uint32_t, std::size_t> characterAt(std::string_view text, std::size_t i) {
    const auto byte = [&](std::size_t k) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i + k]));
    };
    if (byte(0) < 0x80) {
        return {byte(0), 1};
    }
    if (byte(0) < 0xE0) {
        return {(byte(0) & 0x1F) << 6 | (byte(1) & 0x3F), 2};
    }
    if (byte(0) < 0xF0) {
        return {(byte(0) & 0xF) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F), 3};
    }
    return {0x10000, 4};
}

std::string escapeSteering(std::string json) {
    // Nearly all texts are ASCII, whose control characters are escaped by now.
    if (std::all_of(json.begin(), json.end(), [](char c) { return c >= 0 && c < 0x7F; })) {
        return json;
    }
    std::string result;
    for (std::size_t i = 0; i < json.size();) {
        const auto character = characterAt(json, i);
        if (steers(character.first)) {
            result += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4) {
                result += "0123456789abcdef"[(character.first >> shift) % 16];
            }
        } else {
            result.append(json, i, character.second);
        }
        i += character.second;
    }
    return result;
}

} // namespace

std::string jsonText(std::string_view bytes) {
    return escapeSteering(Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace));
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

std::string jsonTotals(const KindTotals& totals) {
    std::string text = "{";
    for (std::size_t kind = 0; kind < totals.size(); ++kind) {
        const KindTotal& total = totals.at(kind);
        text += (kind == 0 ? "\n    " : ",\n    ") +
                jsonText(nameOf(static_cast<FindingKind>(kind))) +
                ": {\"errors\": " + std::to_string(total.errors) +
                ", \"notes\": " + std::to_string(total.notes) +
                ", \"targets\": " + std::to_string(total.targets) + "}";
    }
    return text + "\n  }";
}

std::string soundUtf8(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0; })) {
        return std::string(bytes);
    }
    return Json::parse(jsonText(bytes)).get<std::string>();
}

} // namespace quillmark
