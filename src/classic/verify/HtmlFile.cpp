#include "classic/verify/HtmlFile.h"

#include "base/UpperCase.h"

#include <string>

namespace quillmark {

bool IsHTMLFile(std::string_view name, const ResultList& extensions) {
    const std::string upper = upperCase(name);
    std::string dotted;
    for (int i = 0; i < extensions.Count(); ++i) {
        dotted.assign(".").append(extensions.Line(i));
        if (upper.find(dotted) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace quillmark
