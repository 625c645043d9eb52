#include "command/start/ProgramPlace.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "platform/FolderChoice.h"

namespace quillmark {

namespace {

std::filesystem::path programFolderFor(const Options& options) {
    try {
        return chooseProgramFolder(options.folder);
    } catch (const Failure& failure) {
        throw CannotStart("the program's own folder cannot be used (" + failure.description() +
                          "); name another with --folder DIR");
    }
}

} // namespace

ProgramPlace::ProgramPlace(const Options& options)
    : folder_(programFolderFor(options)), files_(ToBackSlashes(folder_.string())) {}

void ProgramPlace::claim() {
    lock_.emplace(folder_);
    if (!lock_->held()) {
        throw CannotStart("another check is running with the folder " + folder_.string() +
                          "; wait for its end, or give this one its own with --folder DIR");
    }
}

} // namespace quillmark
