#include "store/ResultLists.h"

namespace quillmark {

void ResultLists::ClearForRun() {
    for (ResultList* list :
         {&UnusedList, &IgnoredReferences, &IgnoredReferencesFrom, &InvalidReferences,
          &InvalidReferencesFrom, &DirectoryList, &FileList, &ReferenceList, &ReferenceListFrom,
          &GetFileList, &TempList, &DuplicateList, &FileSizes}) {
        list->Clear();
    }
}

} // namespace quillmark
