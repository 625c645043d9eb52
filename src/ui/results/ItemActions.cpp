#include "ui/results/ItemActions.h"

#include "base/Paths.h"
#include "base/UpperCase.h"
#include "store/ResultLists.h"

namespace quillmark {

namespace {

ItemTarget targetOf(const RunState& run, std::string_view text) {
    // Lists hold local paths in "/" form, too.
    if (run.localMode) {
        const std::string file = ToBackSlashes(text);
        return {file, file, file, 0};
    }
    return {run.baseUrl + std::string(text), std::string(text), {}, 0};
}

/// As the classic rules see it: anywhere in the text.
bool isWebAddress(std::string_view text) {
    const std::string upper = upperAscii(text);
    return upper.find("HTTP:") != std::string::npos || upper.find("FTP:") != std::string::npos;
}

/// As browsers see it: at the beginning.
bool leadsToWeb(std::string_view reference) {
    const std::string upper = upperAscii(reference.substr(0, 8));
    return upper.starts_with("HTTP://") || upper.starts_with("HTTPS://") ||
           upper.starts_with("FTP://");
}

} // namespace

ItemTargets itemTargets(const RunState& run, std::string_view first,
                        std::optional<std::string_view> second) {
    ItemTargets targets;
    targets[0] = targetOf(run, first);
    if (second && isWebAddress(*second)) {
        targets[1].view = *second;
    } else if (second) {
        targets[1] = targetOf(run, *second);
    }
    return targets;
}

ItemTargets siteTargets(const RunState& run, const SiteRow& row) {
    ItemTargets targets;
    if (!row.path.empty()) {
        targets[0] = targetOf(run, row.path);
    } else if (leadsToWeb(row.reference)) {
        targets[0].view = row.reference;
    }
    if (!row.from.empty() && row.from != BaseFile) {
        targets[1] = targetOf(run, row.from);
        targets[1].line = run.localMode ? row.line : 0;
    }
    return targets;
}

std::string itemCaption(std::string_view verb, std::string_view target) {
    return target.empty() ? std::string() : std::string(verb).append(" ").append(target);
}

Failure fileNotFound(const std::string& path) {
    return {53, "File not found: " + path};
}

void deleteLocalFile(LocalDisk& disk, std::string_view target) {
    // deleteIfThere() leaves a folder alone. The user, who said Yes, must hear of that.
    if (target.ends_with('\\')) {
        throw fileNotFound(ToForwardSlashes(target));
    }
    disk.deleteIfThere(target);
}

} // namespace quillmark
