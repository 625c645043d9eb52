#include "classic/ClassicCheck.h"

namespace quillmark {

void ClassicCheck::perform() {
    const Profile& profile = parts_.context.settings.profile;
    const bool remote = !parts_.context.state.localMode;
    if (remote) {
        parts_.walk.testStartFile();
    }
    // Each step looks at the abort flag itself.
    parts_.walk.listStartDirectory();
    parts_.walk.listDirectories();
    parts_.walk.scanStartFile();
    parts_.walk.scanReferencedPages();
    verify();
    if (remote && !aborted() && profile.CHECK_URL == 1) {
        parts_.referencePasses.checkURLs();
    }
    if (!aborted() && profile.CHECK_DUPES != 0) {
        findDuplicateFiles();
    }
}

/// Runs one pass under its title and returns how far it came. A pass after the end of the run does
/// nothing, or what it always does to its end.
PassProgress ClassicCheck::runPass(std::string_view title, const std::function<void()>& pass) {
    const bool runs = !aborted();
    parts_.context.outside.listener.InitializeThinking(title);
    pass();
    if (!runs) {
        return PassProgress::NotRun;
    }
    return aborted() ? PassProgress::Stopped : PassProgress::Done;
}

// The CGI pass runs even after Stop: what it removes would only clutter the results.
void ClassicCheck::verify() {
    const Profile& profile = parts_.context.settings.profile;
    RunState& state = parts_.context.state;
    ReferencePasses& references = parts_.referencePasses;
    state.invalidPass = runPass("Checking References", [&] { references.checkReferences(); });
    state.unusedPass =
        runPass("Checking Unused Files", [&] { parts_.filePasses.checkUnusedFiles(); });
    if (profile.IGNORE_TOPICS == 1 && !aborted()) {
        runPass("Checking Topic References", [&] { references.removeTopicReferences(); });
    }
    if (profile.IGNORE_CGI == 1) {
        runPass("Checking for CGI Files", [&] { references.removeCGIReferences(); });
    }
    if (!aborted()) {
        runPass("Checking For Duplicate Invalid References",
                [&] { references.checkDuplicateInvalidReferences(); });
        runPass("Checking for Duplicate Ignored References",
                [&] { references.checkDuplicateIgnoredReferences(); });
    }
    parts_.context.outside.listener.RemoveThinking();
}

void ClassicCheck::findDuplicateFiles() {
    parts_.context.outside.messages.post("Checking For Duplicate Files");
    parts_.context.state.duplicatesPass =
        runPass("Checking for Duplicate Files", [&] { parts_.filePasses.checkDuplicateFiles(); });
    parts_.context.outside.listener.RemoveThinking();
}

} // namespace quillmark
