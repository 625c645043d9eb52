#pragma once

#include "classic/resolve/FiledReferences.h"
#include "classic/resolve/ReferenceSink.h"
#include "run/ListLimit.h"
#include "run/RunContext.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// Files every reference: as ignored, with the reason, or as a full host path with the page that
/// makes it. Whether the inventory holds that path is looked up once all pages are read.
class ReferenceResolver : public ReferenceSink {
public:
    ReferenceResolver(RunContext& context, ListLimit& limit, FiledReferences& references,
                      MapFileReader& mapFiles)
        : context_(context), limit_(limit), references_(references), mapFiles_(mapFiles) {}

    void MakeAddition(std::string_view targetDirectory, std::string_view target,
                      std::string_view reference) override;

private:
    std::optional<std::string_view> absolutePrefix(std::string_view targetDirectory);
    std::optional<std::string_view> behindAlias(std::string_view prefix,
                                                std::string_view targetDirectory);
    bool ignoredByFirstCharacter(std::string_view targetDirectory, std::string_view target,
                                 std::string_view reference);
    void fileUpperLevels(std::string_view reference);
    bool file(std::string_view path);
    void ignore(std::string_view reference, std::string_view listName,
                std::string_view message = {});
    void testForMap(std::string_view targetDirectory, std::string_view target);

    RunContext& context_;
    ListLimit& limit_;
    FiledReferences& references_;
    MapFileReader& mapFiles_;
    std::string upper_;
};

} // namespace quillmark
