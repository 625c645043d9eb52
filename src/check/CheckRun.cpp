#include "check/CheckRun.h"

#include "base/Failure.h"
#include "base/PathParser.h"
#include "base/Paths.h"
#include "classic/RunParts.h"
#include "classic/resolve/BaseUrl.h"

#include <utility>

namespace quillmark {

CheckRun::CheckRun(ResultLists& lists, RunState& state, const Settings& settings, Outside& outside,
                   std::string_view programFolder)
    : lists_(lists), state_(state), settings_(settings), outside_(outside),
      programFolder_(WithTrailingBackslash(programFolder)),
      sounds_(outside.sounds, settings.configuration) {}

RunOutcome CheckRun::start() {
    lists_.Message.Clear();
    return HostHandler();
}

void CheckRun::stop() {
    // First, should the message fail on a log file that cannot be written.
    state_.abort = true;
    outside_.messages.post("Stopping Quillmark...Please Wait");
}

RunOutcome CheckRun::HostHandler() {
    const Settings snapshot = settings_;
    try {
        prepare();
        RunParts parts({lists_, state_, snapshot, outside_, programFolder_ + "Quillmark.html"},
                       sounds_);
        return perform(parts);
    } catch (const Failure& failure) {
        return failedEnd(failure);
    }
}

RunOutcome CheckRun::perform(RunParts& parts) {
    const Profile& profile = parts.context.settings.profile;
    outside_.messages.post("Starting...");
    if (!state_.localMode) {
        connect(profile);
    }
    outside_.messages.post("Checking For ", profile.START_PATH);
    if (!state_.localMode) {
        parts.walk.testStartFile();
    }
    parts.walk.listStartDirectory();
    parts.walk.listDirectories();
    parts.walk.scanStartFile();
    parts.walk.scanReferencedPages();
    verify(parts);
    if (!state_.localMode && !state_.abort && profile.CHECK_URL == 1) {
        parts.referencePasses.checkURLs();
    }
    if (!state_.abort && profile.CHECK_DUPES != 0) {
        findDuplicateFiles(parts);
    }
    return state_.abort ? abortedEnd() : normalEnd(parts);
}

void CheckRun::prepare() {
    deleteEarlierFiles();
    state_.hostByteTotal = 0;
    state_.unusedByteTotal = 0;
    state_.reading = {};
    state_.invalidPass = state_.unusedPass = state_.duplicatesPass = PassProgress::NotRun;
    lists_.ClearForRun();
    outside_.window.enterRunState();
    state_.abort = false;
    sounds_.start();
    const PathParser start(settings_.profile.START_PATH);
    state_.currentDirectory = start.Path();
    state_.currentFile = start.FileName();
    announceMode();
    if (!state_.localMode && settings_.configuration.TRACE_WINDOW == 1) {
        outside_.window.showTraceWindow();
    }
}

void CheckRun::deleteEarlierFiles() {
    outside_.disk.deleteIfThere(programFolder_ + "Quillmark.log");
    outside_.disk.deleteIfThere("debug.txt");
}

void CheckRun::announceMode() {
    state_.localMode = settings_.profile.START_PATH.find('\\') != std::string::npos;
    outside_.messages.post(state_.localMode ? "Quillmark running in Local Mode"
                                            : "Quillmark running in Remote Mode");
    const BaseUrl base = state_.localMode ? BaseUrl() : computeBaseUrl(settings_.profile.HOST_NAME);
    state_.baseUrl = base.url;
    if (base.settled) {
        outside_.messages.postDebug("Base URL: ", base.url);
    }
}

void CheckRun::connect(const Profile& profile) {
    outside_.ftp.connect({profile.DISABLE_PASV == 1, profile.HOST_NAME, profile.HOST_PORT,
                          profile.USER_NAME, profile.USER_PASSWORD, profile.ACCOUNT_NAME});
    if (!outside_.ftp.connected()) {
        outside_.messages.post("Unable to connect");
        state_.abort = true;
    }
}

PassProgress CheckRun::runPass(std::string_view title, const std::function<void()>& pass) {
    const bool runs = !state_.abort;
    outside_.progress.InitializeThinking(title);
    pass();
    if (!runs) {
        return PassProgress::NotRun;
    }
    return state_.abort ? PassProgress::Stopped : PassProgress::Done;
}

void CheckRun::verify(RunParts& parts) {
    const Profile& profile = parts.context.settings.profile;
    ReferencePasses& references = parts.referencePasses;
    state_.invalidPass = runPass("Checking References", [&] { references.checkReferences(); });
    state_.unusedPass =
        runPass("Checking Unused Files", [&] { parts.filePasses.checkUnusedFiles(); });
    if (profile.IGNORE_TOPICS == 1 && !state_.abort) {
        runPass("Checking Topic References", [&] { parts.ignoredPasses.removeTopicReferences(); });
    }
    if (profile.IGNORE_CGI == 1) {
        runPass("Checking for CGI Files", [&] { parts.ignoredPasses.removeCGIReferences(); });
    }
    if (!state_.abort) {
        runPass("Checking For Duplicate Invalid References",
                [&] { references.checkDuplicateInvalidReferences(); });
        runPass("Checking for Duplicate Ignored References",
                [&] { references.checkDuplicateIgnoredReferences(); });
    }
    outside_.progress.RemoveThinking();
}

void CheckRun::findDuplicateFiles(RunParts& parts) {
    outside_.messages.post("Checking For Duplicate Files");
    state_.duplicatesPass =
        runPass("Checking for Duplicate Files", [&] { parts.filePasses.checkDuplicateFiles(); });
    outside_.progress.RemoveThinking();
}

RunOutcome CheckRun::normalEnd(RunParts& parts) {
    if (!state_.localMode) {
        if (parts.context.settings.profile.GET_STATS == 1) {
            parts.filePasses.computeStatistics();
        }
        outside_.ftp.disconnect();
    }
    outside_.messages.post("Quillmark Finished");
    outside_.window.ShowResults();
    sounds_.finish();
    leaveRunState();
    return RunOutcome::Finished;
}

RunOutcome CheckRun::abortedEnd() {
    if (!state_.localMode && outside_.ftp.connected()) {
        outside_.ftp.disconnect();
    }
    outside_.messages.post("Quillmark Aborted");
    sounds_.finish();
    leaveRunState();
    return RunOutcome::Aborted;
}

RunOutcome CheckRun::failedEnd(const Failure& failure) {
    sounds_.failure();
    try {
        outside_.messages.post(errorMessage(failure));
    } catch (const Failure&) {
        // The log file that failed the run fails here again; the message is on the screen by now.
    }
    outside_.progress.RemoveThinking();
    leaveRunState();
    return RunOutcome::Failed;
}

void CheckRun::leaveRunState() {
    outside_.window.leaveRunState();
    state_.abort = false;
}

} // namespace quillmark
