#include "classic/resolve/ReferenceResolver.h"

#include "base/Failure.h"
#include "base/UpperCase.h"
#include "classic/resolve/UpperLevels.h"

namespace quillmark {

namespace {

// One list with two display names: both stand in users' logs, so neither may change.
constexpr std::string_view AbsoluteListName = "Ignored References";
constexpr std::string_view IgnoredListName = "Ignored References List";

constexpr std::string_view Up = "../";
constexpr std::string_view SecureScheme = "HTTPS:";

} // namespace

void ReferenceResolver::MakeAddition(std::string_view targetDirectory, std::string_view target,
                                     std::string_view reference) {
    context_.outside.messages.postDebug("Target Dir: ", targetDirectory, " File:", target,
                                        " Target: ", reference,
                                        " CurDir:", context_.state.currentDirectory);
    const std::optional<std::string_view> prefix = absolutePrefix(targetDirectory);
    if (prefix) {
        const auto onHost = behindAlias(*prefix, targetDirectory);
        if (!onHost) {
            ignore(reference, AbsoluteListName);
            return;
        }
        targetDirectory = *onHost;
    }
    if (ignoredByFirstCharacter(targetDirectory, target, reference)) {
        return;
    }
    if (targetDirectory.starts_with(Up)) {
        fileUpperLevels(reference);
        return;
    }
    if (targetDirectory.starts_with('.')) {
        ignore(reference, IgnoredListName, "Ignored because of leading .:");
        return;
    }
    std::string path = prefix ? std::string() : context_.state.currentDirectory;
    path.append(targetDirectory).append(target);
    const bool isNew = file(path);
    // The built-in prefixes do not know "https:", which sites of today are full of: users are
    // warned.
    if (isNew && !prefix && upperAscii(reference.substr(0, SecureScheme.size())) == SecureScheme) {
        ++context_.state.reading.secureAddresses;
    }
    testForMap(targetDirectory, target);
}

/// Returns the first prefix that the directory part contains.
std::optional<std::string_view>
ReferenceResolver::absolutePrefix(std::string_view targetDirectory) {
    if (targetDirectory.empty()) {
        return std::nullopt;
    }
    upperAscii(targetDirectory, upper_);
    const ResultList& prefixes = context_.settings.configuration.lstMakeAddition;
    for (int i = 0; i < prefixes.Count(); ++i) {
        if (upper_.find(prefixes.Line(i)) != std::string::npos) {
            return prefixes.Line(i);
        }
    }
    return std::nullopt;
}

/// Returns what follows the site's own web address in the directory part of an absolute reference,
/// or nothing if the reference leads to another site.
std::optional<std::string_view> ReferenceResolver::behindAlias(std::string_view prefix,
                                                               std::string_view targetDirectory) {
    const std::string& alias = context_.settings.profile.HOST_ALIAS;
    if (alias.empty()) {
        return std::nullopt;
    }
    std::string address(prefix);
    address.append("//").append(alias).append("/");
    if (upperAscii(targetDirectory).find(upperAscii(address)) == std::string::npos) {
        return std::nullopt;
    }
    const std::string_view behind = targetDirectory.substr(address.size());
    context_.outside.messages.postDebug("Alias Found. New target directory is ", behind);
    return behind;
}

bool ReferenceResolver::ignoredByFirstCharacter(std::string_view targetDirectory,
                                                std::string_view target,
                                                std::string_view reference) {
    if (targetDirectory.starts_with('/') && context_.settings.profile.ROOT_LEVEL == 0) {
        ignore(reference, IgnoredListName, "Ignored because of leading /:");
        return true;
    }
    if (target.starts_with('#')) {
        ignore(reference, IgnoredListName, "Ignored because of leading #:");
        return true;
    }
    return false;
}

void ReferenceResolver::fileUpperLevels(std::string_view reference) {
    try {
        const UpperLevels resolved =
            ResolveUpperLevels(reference, context_.state.currentDirectory,
                               context_.settings.profile.UPPER_LEVELS == 1);
        if (resolved.code == UpperLevels::Resolved) {
            file(resolved.path);
        } else {
            ignore(reference, IgnoredListName, "Ignored because of leading ../:");
        }
    } catch (const Failure& failure) {
        if (!context_.state.localMode) {
            throw;
        }
        // Real pages hold "../a": on a local site one such reference must not cost the whole run.
        context_.outside.messages.post(errorMessage(failure));
        ignore(reference, IgnoredListName);
    }
}

/// Returns false if the page made the reference before.
bool ReferenceResolver::file(std::string_view path) {
    if (!references_.append(path, context_.state.currentFile)) {
        return false;
    }
    limit_.apply(references_.lines(), "Reference List");
    return true;
}

void ReferenceResolver::ignore(std::string_view reference, std::string_view listName,
                               std::string_view message) {
    ListPair ignored(context_.lists.IgnoredReferences, context_.lists.IgnoredReferencesFrom);
    ignored.Append(reference, context_.state.currentFile);
    if (!message.empty()) {
        context_.outside.messages.post(message, reference);
    }
    limit_.apply(ignored.lines(), listName);
}

// Three characters can never equal the four of ".map": a referenced map file is filed like any
// other file and not opened. Sites rely on their map files' own references not being checked.
void ReferenceResolver::testForMap(std::string_view targetDirectory, std::string_view target) {
    if (target.size() < 3) {
        return;
    }
    const std::string_view ending = target.substr(target.size() - 3, 4);
    if (ending == ".MAP" || ending == ".map") {
        mapFiles_.ProcessMapFile(context_.state.currentDirectory + std::string(targetDirectory),
                                 target);
    }
}

} // namespace quillmark
