#pragma once

#include "classic/RunParts.h"
#include "run/SiteCheck.h"

#include <functional>
#include <string_view>

namespace quillmark {

/// The check by the classic rules, which read pages literally.
class ClassicCheck : public SiteCheck {
public:
    ClassicCheck(const RunContext& context, RunSounds& sounds) : parts_(context, sounds) {}

    void perform() override;
    void computeStatistics() override { parts_.filePasses.computeStatistics(); }

private:
    void verify();
    PassProgress runPass(std::string_view title, const std::function<void()>& pass);
    void findDuplicateFiles();
    bool aborted() const { return parts_.context.state.abort; }

    RunParts parts_;
};

} // namespace quillmark
