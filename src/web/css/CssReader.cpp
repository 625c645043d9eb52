#include "web/css/CssReader.h"

#include "web/css/CssScanner.h"

namespace quillmark::web {

void readCss(const Value& css, CssPlace place, Role role, References& references) {
    ValueSource source(css);
    CssScanner scanner(css.text, references.content().texts);
    while (scanner.next()) {
        const bool import = scanner.kind() == Attribute::CssImport;
        references.add(scanner.address(), source.at(scanner.offset()),
                       placeOf(place.element, place.attribute == Attribute::Other
                                                  ? scanner.kind()
                                                  : place.attribute),
                       import && role != Role::UseOnly ? Role::Sheet : role);
    }
}

} // namespace quillmark::web
