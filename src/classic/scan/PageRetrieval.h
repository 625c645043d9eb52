#pragma once

#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "store/LineIndex.h"

#include <cstdint>

namespace quillmark {

/// Brings pages to the working copy.
class PageRetrieval {
public:
    /// `files` is the index of FileList.
    PageRetrieval(RunContext& context, ListLimit& limit, LineIndex& files);

    /// The results of RetrieveFile.
    static constexpr std::int16_t CopyReady = 0;
    static constexpr std::int16_t NotInInventory = 1;
    static constexpr std::int16_t AlreadyRetrieved = 2;

    /// Announces a page that RetrieveFile will be asked for after those announced before, so that
    /// the host's files can be fetched ahead. The bytes of the path must stay where they are.
    void expect(std::string_view file);

    /// Makes the run's current file available as the working copy. CopyReady also when the run is
    /// being aborted (nothing is done then) and when the host refuses the transfer (there is no
    /// copy then); NotInInventory also when a local copy failed. With `skipCheck`, which is the
    /// test of the start file on the host, neither list is looked at and a refused transfer is
    /// NotInInventory.
    std::int16_t RetrieveFile(bool skipCheck);

private:
    std::int16_t retrieveFromHost(bool skipCheck);
    std::int16_t copyFromDisk();
    void recordRetrieved();

    RunContext& context_;
    ListLimit& limit_;
    LineIndex& files_;
    LineIndex retrieved_;
    ResultList expectedFiles_;
    LineIndex expected_;
};

} // namespace quillmark
