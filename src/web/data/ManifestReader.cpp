#include "web/data/ManifestReader.h"

#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace quillmark::web {

namespace {

using Json = nlohmann::json;

/// An iterator over JSON that notes how far the parser has come: the parser itself tells nobody
/// where a string stands.
class CountingIterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, const char** reached) : at_(at), reached_(reached) {}

    reference operator*() const { return *at_; }
    CountingIterator& operator++() {
        *reached_ = ++at_;
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }
    bool operator!=(const CountingIterator& other) const { return at_ != other.at_; }

private:
    const char* at_;
    const char** reached_;
};

/// The parts of a manifest that lead to addresses, and Outside for all others.
enum class Part { Outside, Manifest, Images, Image, Shortcuts, Shortcut };

struct Level {
    Part part;
    Element element; ///< The list that the part belongs to, for the finding's place.
};

/// Takes what the parser finds, and files the addresses.
class ManifestSink : public Json::json_sax_t {
public:
    explicit ManifestSink(References& references)
        : references_(references), reached_(references.source().text.data()) {}

    CountingIterator iterator(const char* at) { return {at, &reached_}; }

    bool null() override { return true; }
    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(number_integer_t /*value*/) override { return true; }
    bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
    bool binary(binary_t& /*value*/) override { return true; }
    bool string(string_t& value) override;
    bool start_object(std::size_t /*size*/) override;
    bool start_array(std::size_t /*size*/) override;
    bool key(string_t& name) override {
        key_ = name;
        return true;
    }
    bool end_object() override { return leave(); }
    bool end_array() override { return leave(); }
    bool parse_error(std::size_t /*at*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& /*fault*/) override {
        return false;
    }

private:
    bool leave() {
        levels_.pop_back();
        return true;
    }
    Level current() const { return levels_.empty() ? Level{Part::Outside, {}} : levels_.back(); }
    Attribute address(Part part) const;
    std::string_view written() const;

    References& references_;
    const char* reached_; ///< Behind the character that the parser took last.
    std::vector<Level> levels_;
    std::string key_;
};

/// The attribute that the current key counts as, if its string is an address.
Attribute ManifestSink::address(Part part) const {
    switch (part) {
    case Part::Manifest:
        return key_ == "start_url" ? Attribute::StartUrl : Attribute::Other;
    case Part::Image:
        return key_ == "src" ? Attribute::Src : Attribute::Other;
    case Part::Shortcut:
        return key_ == "url" ? Attribute::Url : Attribute::Other;
    default:
        return Attribute::Other;
    }
}

/// The string that the parser has just read, as the file has it, without its quotes. Goes back from
/// the closing quote to the opening one, past escaped quotes.
std::string_view ManifestSink::written() const {
    const char* const close = reached_ - 1;
    const char* open = close - 1;
    const auto escaped = [](const char* quote) {
        const char* p = quote;
        while (p[-1] == '\\') {
            --p;
        }
        return (quote - p) % 2 != 0;
    };
    while (*open != '"' || escaped(open)) {
        --open;
    }
    return {open + 1, static_cast<std::size_t>(close - open - 1)};
}

bool ManifestSink::string(string_t& value) {
    const Level level = current();
    const Attribute attribute = address(level.part);
    if (attribute != Attribute::Other) {
        const std::string_view raw = written();
        const std::string_view text = raw == value ? raw : references_.content().texts.keep(value);
        references_.add(text, raw.data(), placeOf(level.element, attribute), Role::Link);
    }
    return true;
}

bool ManifestSink::start_object(std::size_t /*size*/) {
    const Level level = current();
    if (levels_.empty()) {
        levels_.push_back({Part::Manifest, Element::Other});
    } else if (level.part == Part::Images) {
        levels_.push_back({Part::Image, level.element});
    } else if (level.part == Part::Shortcuts) {
        levels_.push_back({Part::Shortcut, level.element});
    } else {
        levels_.push_back({Part::Outside, Element::Other});
    }
    return true;
}

bool ManifestSink::start_array(std::size_t /*size*/) {
    const Part part = current().part;
    if ((part == Part::Manifest || part == Part::Shortcut) && key_ == "icons") {
        levels_.push_back({Part::Images, Element::Icons});
    } else if (part == Part::Manifest && key_ == "screenshots") {
        levels_.push_back({Part::Images, Element::Screenshots});
    } else if (part == Part::Manifest && key_ == "shortcuts") {
        levels_.push_back({Part::Shortcuts, Element::Shortcuts});
    } else {
        levels_.push_back({Part::Outside, Element::Other});
    }
    return true;
}

} // namespace

void readManifest(const Source& source, PageContent& content) {
    References references(source, content);
    ManifestSink sink(references);
    const char* const begin = source.text.data();
    Json::sax_parse(sink.iterator(begin), sink.iterator(begin + source.text.size()), &sink);
}

} // namespace quillmark::web
