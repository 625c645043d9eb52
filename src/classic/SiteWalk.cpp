#include "classic/SiteWalk.h"

#include "base/PathParser.h"
#include "base/Paths.h"
#include "classic/verify/ReferencePasses.h"

namespace quillmark {

void SiteWalk::testStartFile() {
    RunState& state = context_.state;
    state.currentFile = context_.settings.profile.START_PATH;
    state.currentDirectory = PathParser(state.currentFile).Path();
    if (retrieval_.RetrieveFile(true) != PageRetrieval::CopyReady) {
        context_.outside.messages.post("Unable to retrieve start file");
        state.abort = true;
    }
}

void SiteWalk::listStartDirectory() {
    if (context_.state.abort) {
        context_.outside.messages.post("Unable to locate Start File - Aborting");
        return;
    }
    inventory_.GetDirectory();
}

void SiteWalk::listDirectories() {
    RunState& state = context_.state;
    // In Local Mode the current directory is in "\" form here: a local site begins at level 0.
    state.startLevel = StartLevel(state.currentDirectory);
    const ResultList& directories = context_.lists.DirectoryList;
    for (int i = 0; i < directories.Count() && !state.abort; ++i) {
        expectDirectories();
        state.currentDirectory = directories.Line(i);
        if (withinDepth(state.currentDirectory)) {
            inventory_.GetDirectory();
        }
    }
}

void SiteWalk::expectDirectories() {
    const ResultList& directories = context_.lists.DirectoryList;
    for (; expectedDirectories_ < directories.Count(); ++expectedDirectories_) {
        const std::string_view directory = directories.Line(expectedDirectories_);
        if (!context_.state.localMode && withinDepth(directory)) {
            context_.outside.ftp.expectListing(directory);
        }
    }
}

// The levels of both directories add up: users have chosen their depth by that sum, so a deep start
// directory leaves fewer levels.
bool SiteWalk::withinDepth(std::string_view directory) const {
    const int maximum = context_.settings.profile.MAX_LEVELS;
    return maximum == 0 || context_.state.startLevel + StartLevel(directory) < maximum;
}

void SiteWalk::scanStartFile() {
    RunState& state = context_.state;
    const std::string& startPath = context_.settings.profile.START_PATH;
    const std::string directory(PathParser(startPath).Path());
    state.currentFile = state.localMode ? ToForwardSlashes(startPath) : startPath;
    state.currentDirectory = state.localMode ? ToForwardSlashes(directory) : directory;
    references_.append(state.currentFile, BaseFile);
    if (retrieval_.RetrieveFile(false) == PageRetrieval::NotInInventory) {
        context_.outside.messages.post("Unable to read start file");
        state.abort = true;
        return;
    }
    scanner_.ParseFile();
}

void SiteWalk::scanReferencedPages() {
    const ResultList& references = references_.lines();
    // The list grows while its pages are scanned. A page that moves away leaves its place to the
    // next.
    for (int i = 0; i < references.Count() && !context_.state.abort;) {
        context_.outside.events.DoEvents();
        const bool moved = isOtherPage(references.Line(i)) && !scanReferencedPage(i);
        if (!moved) {
            ++i;
        }
    }
}

void SiteWalk::expectPages() {
    const ResultList& references = references_.lines();
    for (; expectedPages_ < references.Count(); ++expectedPages_) {
        const std::string_view reference = references.Line(expectedPages_);
        if (isOtherPage(reference)) {
            retrieval_.expect(reference);
        }
    }
}

bool SiteWalk::isOtherPage(std::string_view reference) const {
    const NameEqual sameName(NameComparison::IgnoreCase);
    return IsHTMLFile(reference, context_.settings.configuration.lstCheckHTML) &&
           !sameName(reference, context_.settings.profile.START_PATH);
}

/// Returns false if the page is not in the inventory. Line i has then moved to the invalid
/// references.
bool SiteWalk::scanReferencedPage(int i) {
    RunState& state = context_.state;
    expectPages();
    state.currentFile = references_.lines().Line(i);
    state.currentDirectory = PathParser(state.currentFile).Path();
    const std::int16_t code = retrieval_.RetrieveFile(false);
    if (code == PageRetrieval::NotInInventory) {
        moveToInvalid(i);
        return false;
    }
    if (code == PageRetrieval::CopyReady && !state.abort) {
        scanner_.ParseFile();
    }
    return true;
}

void SiteWalk::moveToInvalid(int i) {
    const std::string& page = context_.state.currentFile;
    ListPair invalid(context_.lists.InvalidReferences, context_.lists.InvalidReferencesFrom);
    invalid.AppendFrom(references_.pair(), i);
    context_.outside.messages.postDebug("Added Invalid Reference(1) ", page);
    limit_.apply(invalid.lines(), "Invalid Reference List");
    limit_.apply(invalid.from(), "Invalid References From List");
    references_.remove(i);
    // The lines behind it have moved down by one.
    --expectedPages_;
}

} // namespace quillmark
