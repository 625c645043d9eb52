#include "check/CheckRun.h"

#include "base/Failure.h"
#include "base/PathParser.h"
#include "base/Paths.h"
#include "classic/ClassicCheck.h"
#include "classic/resolve/BaseUrl.h"
#include "web/check/WebCheck.h"

#include <new>
#include <utility>

namespace quillmark {

CheckRun::CheckRun(ResultLists& lists, SiteResults& site, RunState& state, const Settings& settings,
                   Outside& outside, std::string_view programFolder)
    : lists_(lists), site_(site), state_(state), settings_(settings), outside_(outside),
      programFolder_(WithTrailingBackslash(programFolder)),
      sounds_(outside.listener, settings.configuration) {}

RunOutcome CheckRun::start() {
    lists_.Message.Clear();
    state_.outcome = HostHandler();
    return state_.outcome;
}

void CheckRun::stop() {
    // Set first: posting the message fails if the log file cannot be written.
    state_.abort = true;
    state_.stopped = true;
    outside_.messages.post("Stopping Quillmark...Please Wait");
}

RunOutcome CheckRun::HostHandler() {
    // Whatever changes the settings meanwhile, a run keeps to those it began with.
    const Settings snapshot = settings_;
    try {
        prepare();
        return snapshot.profile.RULES == Rules::Web ? performWeb(snapshot)
                                                    : performClassic(snapshot);
    } catch (const Failure& failure) {
        return failedEnd(failure);
    } catch (const std::bad_alloc&) {
        // The run's memory is free again by now, so there is room for the message.
        return failedEnd({7, "Out of memory"});
    }
}

RunOutcome CheckRun::performClassic(const Settings& settings) {
    ClassicCheck check({lists_, state_, settings, outside_, programFolder_ + "Quillmark.html"},
                       sounds_);
    return perform(check, settings.profile);
}

RunOutcome CheckRun::performWeb(const Settings& settings) {
    web::WebCheck check(site_, state_, settings, webOptions_, outside_,
                        programFolder_ + "Quillmark.html");
    return perform(check, settings.profile);
}

RunOutcome CheckRun::perform(SiteCheck& check, const Profile& profile) {
    outside_.messages.post("Starting...");
    if (!state_.localMode) {
        connect(profile);
    }
    outside_.messages.post("Checking For ", profile.START_PATH);
    check.perform();
    return state_.abort ? abortedEnd() : normalEnd(check, profile);
}

void CheckRun::prepare() {
    deleteEarlierFiles();
    state_.hostByteTotal = 0;
    state_.unusedByteTotal = 0;
    state_.reading = {};
    state_.invalidPass = state_.unusedPass = state_.duplicatesPass = PassProgress::NotRun;
    lists_.ClearForRun();
    site_ = {};
    outside_.listener.enterRunState();
    state_.abort = false;
    state_.stopped = false;
    sounds_.start();
    const PathParser start(settings_.profile.START_PATH);
    state_.currentDirectory = start.Path();
    state_.currentFile = start.FileName();
    announceMode();
    if (!state_.localMode && settings_.configuration.TRACE_WINDOW == 1) {
        outside_.listener.showTraceWindow();
    }
}

// What they hold would be taken for this run's if it wrote none of its own.
void CheckRun::deleteEarlierFiles() {
    outside_.disk.deleteIfThere(programFolder_ + "Quillmark.log");
    outside_.disk.deleteIfThere("debug.txt");
}

// Paths on hosts are separated by "/", so that one backslash tells a local site.
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
    outside_.ftp.connect(loginOf(profile));
    if (!outside_.ftp.connected()) {
        outside_.messages.post("Unable to connect");
        state_.abort = true;
    }
}

RunOutcome CheckRun::normalEnd(SiteCheck& check, const Profile& profile) {
    if (!state_.localMode) {
        if (profile.GET_STATS == 1) {
            check.computeStatistics();
        }
        outside_.ftp.disconnect();
    }
    outside_.messages.post("Quillmark Finished");
    outside_.listener.ShowResults();
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
        // If the log file ended the run, it fails here again. The message is on the screen by now.
    }
    outside_.listener.RemoveThinking();
    leaveRunState();
    return RunOutcome::Failed;
}

// A Stop that came too late for this run must not end the next one.
void CheckRun::leaveRunState() {
    outside_.disk.endRun();
    outside_.listener.leaveRunState();
    state_.abort = false;
    state_.stopped = false;
}

} // namespace quillmark
