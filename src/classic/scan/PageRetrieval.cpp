#include "classic/scan/PageRetrieval.h"

#include "base/Paths.h"

namespace quillmark {

PageRetrieval::PageRetrieval(RunContext& context, ListLimit& limit, LineIndex& files)
    : context_(context), limit_(limit), files_(files),
      retrieved_(context.lists.GetFileList, context.comparison()),
      expected_(expectedFiles_, context.comparison()) {}

void PageRetrieval::expect(std::string_view file) {
    if (context_.state.localMode || expected_.contains(file) || retrieved_.contains(file) ||
        !files_.contains(file)) {
        return;
    }
    expectedFiles_.AppendView(file);
    context_.outside.ftp.expectFile(file);
}

std::int16_t PageRetrieval::RetrieveFile(bool skipCheck) {
    if (context_.state.abort) {
        return CopyReady;
    }
    Messages& messages = context_.outside.messages;
    const std::string& file = context_.state.currentFile;
    if (!skipCheck && retrieved_.contains(file)) {
        messages.post("Retrieve Skipped For ", file);
        return AlreadyRetrieved;
    }
    messages.post("Retrieving ", file);
    if (!skipCheck && !files_.contains(file)) {
        messages.post("Added ", file, " To Invalid Reference List");
        return NotInInventory;
    }
    return context_.state.localMode ? copyFromDisk() : retrieveFromHost(skipCheck);
}

std::int16_t PageRetrieval::retrieveFromHost(bool skipCheck) {
    // If the host refuses this page, the page before must not be scanned in its place.
    context_.outside.disk.deleteIfThere(context_.workingCopy);
    const bool retrieved =
        context_.outside.ftp.retrieve(context_.state.currentFile, context_.workingCopy);
    if (skipCheck) {
        return retrieved ? CopyReady : NotInInventory;
    }
    recordRetrieved();
    return CopyReady;
}

std::int16_t PageRetrieval::copyFromDisk() {
    LocalDisk& disk = context_.outside.disk;
    const std::string source = ToBackSlashes(context_.state.currentFile);
    const auto goOn = [this] { return !context_.stopRequested(); };
    if (disk.CopyFileBinary(source, context_.workingCopy, goOn) == 0) {
        recordRetrieved();
        return CopyReady;
    }
    // A page that Stop has cut short is not an invalid reference.
    if (context_.state.stopped) {
        return CopyReady;
    }
    disk.deleteIfThere(context_.workingCopy);
    return NotInInventory;
}

void PageRetrieval::recordRetrieved() {
    limit_.AddWithLimit(context_.lists.GetFileList, "Get File List", context_.state.currentFile);
}

} // namespace quillmark
