#include "settings/Encryption.h"

#include <array>

namespace quillmark {

namespace {

struct Row {
    Encryption encryption;
    std::string_view name;
    std::int16_t port;
};

/// In the order of Encryption, whose values are the indices.
constexpr std::array<Row, 4> Rows = {{
    {Encryption::None, "none", 21},
    {Encryption::Tls, "tls", 21},
    {Encryption::Implicit, "implicit", 990},
    {Encryption::Sftp, "sftp", 22},
}};

const Row& rowOf(Encryption encryption) {
    return Rows.at(static_cast<std::size_t>(encryption));
}

} // namespace

std::string_view nameOf(Encryption encryption) {
    return rowOf(encryption).name;
}

std::optional<Encryption> encryptionNamed(std::string_view name) {
    for (const Row& row : Rows) {
        if (row.name == name) {
            return row.encryption;
        }
    }
    return std::nullopt;
}

std::int16_t usualPort(Encryption encryption) {
    return rowOf(encryption).port;
}

} // namespace quillmark
