#include "classic/verify/FilePasses.h"

#include "base/Numbers.h"
#include "base/PathParser.h"
#include "base/UpperCase.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace quillmark {

namespace {

std::string_view sizeOf(std::string_view fileSizesLine) {
    return fileSizesLine.size() < SizeDigits
               ? fileSizesLine
               : fileSizesLine.substr(fileSizesLine.size() - SizeDigits);
}

double sumOfSizes(const ResultList& fileSizes, int count) {
    double sum = 0;
    for (int i = 0; i < count; ++i) {
        sum += leadingNumber(sizeOf(fileSizes.Line(i)));
    }
    return sum;
}

/// What duplicates have in common: name and size, with a "/" between them that no name contains.
std::string duplicateKey(std::string_view file, std::string_view fileSizesLine) {
    const PathParser parser(file);
    return upperCase(parser.FileName()).append("/").append(sizeOf(fileSizesLine));
}

} // namespace

void FilePasses::checkUnusedFiles() {
    const ResultList& files = context_.lists.FileList;
    const std::vector<bool> used = referredTo();
    for (int i = 0; i < files.Count() && !context_.state.abort; ++i) {
        context_.step(i, files.Count());
        // Stop may have been pressed during the step.
        if (!context_.state.abort && !used[static_cast<std::size_t>(files_.find(files.Line(i)))]) {
            context_.lists.UnusedList.AppendFrom(files, i);
            limit_.apply(context_.lists.UnusedList, "Unused File List");
        }
    }
}

/// Marks each line of FileList that equals a reference; of several equal lines only the first.
std::vector<bool> FilePasses::referredTo() {
    const ResultList& references = context_.lists.ReferenceList;
    std::vector<bool> used(static_cast<std::size_t>(context_.lists.FileList.Count()));
    for (int i = 0; i < references.Count(); ++i) {
        const int file = files_.find(references.Line(i));
        if (file != LineIndex::NotThere) {
            used[static_cast<std::size_t>(file)] = true;
        }
    }
    return used;
}

void FilePasses::checkDuplicateFiles() {
    const ResultList& files = context_.lists.FileList;
    std::unordered_map<std::string, int> occurrences;
    std::vector<int*> left; // For each file the count it shares; such a map never moves its values.
    left.reserve(static_cast<std::size_t>(files.Count()));
    for (int i = 0; i < files.Count(); ++i) {
        int& count = occurrences[duplicateKey(files.Line(i), context_.lists.FileSizes.Line(i))];
        ++count;
        left.push_back(&count);
    }
    for (int i = 0; i < files.Count(); ++i) {
        context_.step(i, files.Count());
        int& others = *left[static_cast<std::size_t>(i)];
        --others;
        if (others > 0) {
            context_.lists.DuplicateList.AppendFrom(files, i);
        }
    }
}

void FilePasses::computeStatistics() {
    RunState& state = context_.state;
    const ResultLists& lists = context_.lists;
    state.hostByteTotal = sumOfSizes(lists.FileSizes, lists.FileSizes.Count());
    state.unusedByteTotal = sumOfSizes(lists.FileSizes, lists.UnusedList.Count());
    state.statisticsComplete = true;
}

} // namespace quillmark
