#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// What is wrong with a reference.
enum class FindingKind : std::uint8_t {
    Missing,
    FragmentMissing,
    OtherCase,
    OtherForm,
    ExtensionLeftOut,
    FolderWithoutIndex,
    ThisComputerOnly,
    NoAddress,
    DanglingLink,
    // Of web addresses that were asked:
    AddressMissing, ///< 404, 410.
    AddressRefused, ///< Another 4xx, unless it is about access rights.
    HostUnknown,
    HostRefuses, ///< Nobody listens.
    Insecure,    ///< TLS failed, or the certificate is not good.
    RedirectLoop,
    RedirectNowhere, ///< To something other than a web address.
    Moved,           ///< 301, 308.
    Undetermined,    ///< The status tells of rights, haste or trouble, not of the page.
    TimedOut,
    NoAnswer,      ///< The connection was lost, or the answer is not HTTP.
    NotAsked,      ///< The time for all of them was over.
    PrivateAddress ///< In a private network, which must not be asked.
};
inline constexpr std::size_t FindingKinds = 22;

/// Errors make a check fail; notes are for people.
enum class FindingLevel : std::uint8_t { Error, Note };

/// Why a reference was not looked up.
enum class IgnoredReason : std::uint8_t {
    AnotherSite,
    OtherScheme,
    AboveTop,
    Excluded,
    NotListed,   ///< In a folder that could not be listed, or lies deeper than MAX_LEVELS.
    ClassicRules ///< The classic rules do not tell why.
};

inline constexpr std::size_t IgnoredReasons = 6;

/// Where a reference stands.
struct Place {
    std::uint32_t page = 0;   ///< Index into SiteResults::pages.
    std::uint32_t line = 1;   ///< 1-based; 0 where it is not known.
    std::uint32_t column = 1; ///< 1-based, in characters; 0 with line 0.
    std::string_view element; ///< "" in a style sheet.
    std::string_view attribute;
};

/// A reference that is not as it should be.
struct Finding {
    FindingKind kind = FindingKind::Missing;
    FindingLevel level = FindingLevel::Error;
    Place at;
    std::string_view reference; ///< As written, decoded to UTF-8.
    /// The full path that it leads to, with "#" and the fragment where that is missing; empty where
    /// it leads to no path.
    std::string_view target;
    std::string_view suggestion; ///< A reference to write instead; may be empty.
    std::uint16_t status = 0;    ///< The status that the web server answered; 0 without one.

    /// The target, or what is written where it leads to no path.
    std::string_view targetOrReference() const { return target.empty() ? reference : target; }
};

/// A reference that was not looked up.
struct IgnoredReference {
    IgnoredReason reason = IgnoredReason::AnotherSite;
    Place at;
    std::string_view reference; ///< As written, decoded to UTF-8.
};

/// The short name of a kind, for output that programs read: "fragment-missing".
std::string_view nameOf(FindingKind kind);
/// The same for a level: "error", "note".
std::string_view nameOf(FindingLevel level);
/// A reason as a person reads it: "another site".
std::string_view nameOf(IgnoredReason reason);
/// What is wrong, as a person reads it: "there is no such file".
std::string_view explanationOf(FindingKind kind);
/// The same with the server's status: "the server has no such page (404)".
std::string explanationOf(const Finding& finding);
/// The level of findings of a kind, exceptions aside.
FindingLevel usualLevelOf(FindingKind kind);
/// What to do about it, in sentences: "Write the name of a file that is there, or ...".
std::string_view helpOf(FindingKind kind);

} // namespace quillmark
