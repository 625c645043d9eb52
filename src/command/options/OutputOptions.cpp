#include "command/options/OutputOptions.h"

#include "report/formats/Formats.h"

#include <algorithm>

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

std::string namesOfFormats() {
    std::string names;
    for (const Format& format : formats()) {
        names.append(names.empty() ? "" : ", ").append(format.name);
    }
    return names;
}

/// Takes FORMAT[:FILE] apart. The file "-" is standard output, as no file is.
Output parseOutput(const std::string& text) {
    const std::size_t colon = text.find(':');
    Output output{text.substr(0, colon), ""};
    if (findFormat(output.format) == nullptr) {
        throw CLI::ValidationError("there is no format \"" + output.format +
                                   "\"; the formats are: " + namesOfFormats());
    }
    if (colon != std::string::npos) {
        output.file = text.substr(colon + 1);
        if (output.file.empty()) {
            throw CLI::ValidationError("\"" + text + "\" names no file behind the colon");
        }
        if (output.file == "-") {
            output.file.clear();
        }
    }
    return output;
}

} // namespace

void addOutputOptions(CLI::App& app, Options& options) {
    app.add_option_function<std::vector<std::string>>(
           "--output",
           [&options](const std::vector<std::string>& texts) {
               options.outputs.clear();
               for (const std::string& text : texts) {
                   options.outputs.push_back(parseOutput(text));
               }
           },
           "Write the results in this format, to this file or else to standard output; may\n"
           "be repeated. The formats:\n" +
               namesOfFormats())
        ->type_name("FORMAT[:FILE]")
        ->allow_extra_args(false)
        ->group(ResultsGroup);
    app.add_option("--baseline", options.baseline,
                   "Do not count the findings in this file: the exit status is that of new ones")
        ->type_name("FILE")
        ->group(ResultsGroup);
    app.add_option("--write-baseline", options.writeBaseline,
                   "Write all findings of this check to this file, and end with status 0")
        ->type_name("FILE")
        ->group(ResultsGroup);
    app.add_flag("--strict", options.strict, "Count notes as errors")->group(ResultsGroup);
    app.add_option("--path-prefix", options.pathPrefix,
                   "The folder of the site in your repository, which --output puts before paths,\n"
                   "such as public")
        ->type_name("PREFIX")
        ->group(ResultsGroup);
}

void requireOneStandardOutput(const Options& options) {
    std::vector<std::string> takers;
    if (options.json == "-") {
        takers.emplace_back("--json -");
    }
    if (!options.list.empty()) {
        takers.emplace_back("--list");
    }
    for (const Output& output : options.outputs) {
        if (output.file.empty()) {
            takers.push_back("--output " + output.format);
        }
    }
    if (takers.size() > 1) {
        throw CLI::ValidationError(takers[0] + " and " + takers[1] +
                                   " both want standard output: give one of them a file");
    }
}

} // namespace quillmark
