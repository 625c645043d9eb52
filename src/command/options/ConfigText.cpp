#include "command/options/ConfigText.h"

namespace quillmark {

namespace {

/// Copies a text character by character, and knows where quotes, comments and arrays are open.
class TomlScanner {
public:
    std::string read(const std::string& text) {
        for (const char c : text) {
            if (quote_ != 0) {
                takeQuoted(c);
            } else if (!inComment_ || c == '\n') {
                takePlain(c);
            }
            line_ += c == '\n' ? 1 : 0;
        }
        if (quote_ != 0) {
            failQuote();
        }
        if (depth_ > 0) {
            throw ConfigTextError(bracketLine_, "the \"[\" is not closed");
        }
        return result_;
    }

private:
    void takeQuoted(char c) {
        if (c == '\n') {
            failQuote();
        }
        if (c == '\\' && quote_ == '"') {
            throw ConfigTextError(line_, "write what holds a \"\\\" in single quotes: '\\.pdf$'");
        }
        quote_ = c == quote_ ? '\0' : quote_;
        result_ += c;
    }

    void takePlain(char c) {
        if (c == '#') {
            inComment_ = true;
            return;
        }
        if (c == '\n') {
            inComment_ = false;
            result_ += depth_ > 0 ? ' ' : '\n';
            return;
        }
        if (c == '"' || c == '\'') {
            quote_ = c;
        } else if (c == '[') {
            bracketLine_ = ++depth_ == 1 ? line_ : bracketLine_;
        } else if (c == ']') {
            --depth_;
            dropLastComma();
        }
        result_ += c;
    }

    void dropLastComma() {
        const std::size_t last = result_.find_last_not_of(" \t\r");
        if (last != std::string::npos && result_[last] == ',') {
            result_.resize(last);
        }
    }

    [[noreturn]] void failQuote() const {
        throw ConfigTextError(line_, "the quotes do not end in their line");
    }

    std::string result_;
    int line_ = 1;
    int depth_ = 0;
    int bracketLine_ = 1;
    char quote_ = '\0';
    bool inComment_ = false;
};

} // namespace

std::string readableToml(const std::string& text) {
    return TomlScanner().read(text);
}

} // namespace quillmark
