#include "desktop/Program.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "findings/ListProjection.h"
#include "platform/FolderLock.h"
#include "platform/disk/StartFile.h"
#include "settings/ConfigurationFile.h"
#include "settings/DefaultSettings.h"
#include "web/check/WebOptions.h"
#include "windows/shared/SelectorAccess.h"

#include <utility>

namespace quillmark {

namespace {

/// 1031: another program uses the working copy.
Failure folderInUse(const std::filesystem::path& folder) {
    return {1031, "Another check is running with the folder " + folder.string() +
                      ". Wait for its end, or give this one a folder of its own."};
}

} // namespace

Program::Program(std::filesystem::path folder, std::filesystem::path help,
                 const DesktopParts& parts, const std::function<void(std::string_view)>& messageBox)
    : folder_(std::move(folder)), files_(ToBackSlashes(folder_.string())),
      messages_(workspace_.settings.configuration, workspace_.run, workspace_.lists.Message,
                workspace_.trace, folder_ / "Quillmark.log", feed_),
      trace_(workspace_.trace),
      ftp_(messages_, events_, workspace_.run, trace_, *this, timeoutsFromEnvironment()),
      inet_(events_, workspace_.run), playSound_(parts.playSound),
      window_({workspace_, files_, messages_, progress_, disk_, ftp_, parts.shell, parts.dialogs,
               parts.printer, folder_},
              *this, std::move(help)),
      outside_{messages_, disk_, ftp_, inet_, *this, events_, site_},
      run_(workspace_.lists, workspace_.site, workspace_.run, workspace_.settings, outside_,
           ToBackSlashes(folder_.string())) {
    announceSelectorsWithLabels();
    feed_.onPosted([this] { window_.messagesPosted(); });
    trace_.onTraced([this] { window_.conversationTraced(); });
    progress_.setOwner(&window_);
    // What the file does not hold, or cannot be read of it, keeps these values.
    SetDefaultSettings(workspace_.settings);
    try {
        ReadConfigurations(workspace_.settings, files_, messageBox);
    } catch (const Failure& failure) {
        messageBox("Quillmark.ini cannot be written: " + failure.description());
    }
}

// An aborted run ends without ShowResults, but users look at its lists as well.
void Program::leaveRunState() {
    fillLists();
    window_.leaveRunState();
}

void Program::ShowResults() {
    fillLists();
    window_.ShowResults();
}

// The lists are filled once per run: a normal end gets here twice.
void Program::fillLists() {
    const bool filled = workspace_.lists.FileList.Count() > 0;
    if (workspace_.site.filled && !filled) {
        projectLists(workspace_.site, workspace_.lists);
    }
}

void Program::requireStartFile() {
    const Profile& profile = workspace_.settings.profile;
    if (profile.RULES == Rules::Web) {
        web::requireSoundOptions({}, profile);
    }
    if (profile.START_PATH.find('\\') != std::string::npos) {
        requireListedStartFile(profile.START_PATH, profile.RULES);
    } else {
        requireKeyFile(profile);
    }
}

void Program::start() {
    const FolderLock lock(folder_);
    if (!lock.held()) {
        throw folderInUse(folder_);
    }
    run_.start();
}

} // namespace quillmark
