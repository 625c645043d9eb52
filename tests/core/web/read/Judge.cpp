#include "core/web/read/Judge.h"

#include "web/html/LinkRole.h"
#include "web/html/MetaRefresh.h"
#include "web/html/Places.h"
#include "web/html/Srcset.h"
#include "web/text/Ascii.h"

#include <gumbo.h>
#include <map>

namespace quillmark::web::test {

namespace {

std::string line(Position at, std::uint16_t place, std::string_view text) {
    const PlaceName name = placeName(place);
    return std::to_string(at.line) + ":" + std::to_string(at.column) + " " +
           std::string(name.element) + " " + std::string(name.attribute) + " " + std::string(text);
}

std::string_view view(const GumboStringPiece& piece) {
    return {piece.data, piece.length};
}

/// Walks the tree and files each line under its place in the source, so that neither what the tree
/// moves nor what it clones matters.
class Judge {
public:
    explicit Judge(std::string_view page) {
        GumboOptions options = kGumboDefaultOptions;
        options.tab_stop = 1;
        options.max_errors = 0;
        GumboOutput* output = gumbo_parse_with_options(&options, page.data(), page.size());
        walk(output->document, false);
        gumbo_destroy_output(&options, output);
    }

    Lines lines() const {
        Lines all;
        for (const auto& entry : lines_) {
            all.push_back(entry.second);
        }
        return all;
    }

private:
    /// In the order of the lines.
    enum class Kind { Reference, Id, MapName };

    void walk(const GumboNode* node, bool inTemplate) {
        if (node->type == GUMBO_NODE_DOCUMENT) {
            walkChildren(node->v.document.children, false);
        } else if (node->type == GUMBO_NODE_ELEMENT || node->type == GUMBO_NODE_TEMPLATE) {
            const GumboElement& element = node->v.element;
            take(element, inTemplate);
            walkChildren(element.children, inTemplate || node->type == GUMBO_NODE_TEMPLATE);
        }
    }

    void walkChildren(const GumboVector& children, bool inTemplate) {
        for (unsigned i = 0; i < children.length; ++i) {
            walk(static_cast<const GumboNode*>(children.data[i]), inTemplate);
        }
    }

    void take(const GumboElement& element, bool inTemplate) {
        GumboStringPiece name = element.original_tag;
        gumbo_tag_from_original_text(&name);
        const bool html = element.tag_namespace == GUMBO_NAMESPACE_HTML;
        const Element known = findElement(view(name));
        for (unsigned i = 0; i < element.attributes.length; ++i) {
            const auto& attribute = *static_cast<const GumboAttribute*>(element.attributes.data[i]);
            const std::string written = std::string(view(attribute.original_name));
            const Attribute attributeName = findAttribute(written);
            if (!html && attributeName == Attribute::XlinkHref &&
                value(element, "href") != nullptr) {
                continue;
            }
            const Meaning meaning =
                html ? htmlMeaning(known, attributeName) : svgMeaning(known, attributeName);
            takeAttribute(element, attribute, placeOf(known, attributeName), meaning, inTemplate);
        }
    }

    static const char* value(const GumboElement& element, std::string_view name) {
        for (unsigned i = 0; i < element.attributes.length; ++i) {
            const auto& attribute = *static_cast<const GumboAttribute*>(element.attributes.data[i]);
            if (attribute.attr_namespace == GUMBO_ATTR_NAMESPACE_NONE && attribute.name == name) {
                return attribute.value;
            }
        }
        return nullptr;
    }

    static std::string_view text(const GumboElement& element, std::string_view name) {
        const char* found = value(element, name);
        return found == nullptr ? "" : found;
    }

    void takeAttribute(const GumboElement& element, const GumboAttribute& attribute,
                       std::uint16_t place, Meaning meaning, bool inTemplate) {
        const std::string_view decoded = attribute.value;
        switch (meaning) {
        case Meaning::None:
        case Meaning::Base:
        case Meaning::Css:
            break;
        case Meaning::Id:
        case Meaning::MapName:
            if (!decoded.empty() && !inTemplate) {
                const Kind kind = meaning == Meaning::Id ? Kind::Id : Kind::MapName;
                lines_[{kind, attribute.original_name.data}] = "#" + std::string(decoded);
            }
            break;
        case Meaning::Srcset:
            for (Srcset srcset(decoded); srcset.next();) {
                add(attribute, place, srcset.address(), srcset.offset());
            }
            break;
        case Meaning::Content:
            takeContent(element, attribute, place);
            break;
        case Meaning::Rel:
            if (!linkRole(text(element, "rel"), text(element, "type"))) {
                break;
            }
            [[fallthrough]];
        default:
            add(attribute, place, decoded);
            break;
        }
    }

    void takeContent(const GumboElement& element, const GumboAttribute& attribute,
                     std::uint16_t place) {
        const std::string_view decoded = attribute.value;
        if (equalIgnoringCase(text(element, "http-equiv"), "refresh")) {
            const std::string_view address = refreshAddress(decoded);
            if (!address.empty()) {
                add(attribute, place, address,
                    static_cast<std::size_t>(address.data() - decoded.data()));
            }
        } else if (namesFile(text(element, "property")) || namesFile(text(element, "name")) ||
                   namesFile(text(element, "itemprop"))) {
            add(attribute, place, decoded);
        }
    }

    /// A value or a part of it. Where a part is written is known only if nothing before it is
    /// decoded.
    void add(const GumboAttribute& attribute, std::uint16_t place, std::string_view text,
             std::size_t offset = 0) {
        const std::string_view written = view(attribute.original_value);
        const bool quoted = written.starts_with("\"") || written.starts_with("'");
        const std::string_view before = std::string_view(attribute.value).substr(0, offset);
        Position at = {attribute.value_start.line, attribute.value_start.column + (quoted ? 1 : 0)};
        for (const char c : before) {
            at = c == '\n' ? Position{at.line + 1, 1} : Position{at.line, at.column + 1};
        }
        lines_[{Kind::Reference, written.data() + offset}] = line(at, place, text);
    }

    std::map<std::pair<Kind, const char*>, std::string> lines_;
};

} // namespace

Lines linesOf(const PageContent& content) {
    Lines all;
    if (content.base) {
        all.push_back("base " + std::string(*content.base));
    }
    for (const PageReference& reference : content.references) {
        all.push_back(line(reference.at, reference.place, reference.text));
    }
    for (const std::string_view id : content.ids) {
        all.push_back("#" + std::string(id));
    }
    for (const std::string_view name : content.mapNames) {
        all.push_back("#" + std::string(name));
    }
    return all;
}

Lines linesOf(std::string_view page, PageKind kind) {
    const std::vector<char> exact(page.begin(), page.end());
    PageContent content;
    readPage({exact.data(), exact.size()}, kind, content);
    return linesOf(content);
}

Lines judge(std::string_view page) {
    return Judge(page).lines();
}

} // namespace quillmark::web::test
