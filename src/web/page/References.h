#pragma once

#include "web/page/Names.h"
#include "web/page/PageContent.h"
#include "web/page/Positions.h"
#include "web/text/Source.h"
#include "web/text/Value.h"

namespace quillmark::web {

/// Files the references of a source in its content. They must come in source order.
class References {
public:
    References(const Source& source, PageContent& content)
        : source_(source), content_(content), positions_(source) {}

    /// Decodes a value of the source.
    Value decode(std::string_view raw, ReferenceIn in = ReferenceIn::Attribute) {
        return decodeValue(raw, in, source_, content_.texts);
    }

    /// Files an address whose first character is at `at` in the source. One with PHP code in it is
    /// left out: what it is will be known only when the page is served.
    void add(std::string_view address, const char* at, std::uint16_t place, Role role) {
        if (address.find("<?") == std::string_view::npos) {
            content_.references.push_back({address, positions_.at(at), place, role});
        }
    }

    PageContent& content() { return content_; }
    const Source& source() const { return source_; }

private:
    const Source& source_;
    PageContent& content_;
    Positions positions_;
};

} // namespace quillmark::web
