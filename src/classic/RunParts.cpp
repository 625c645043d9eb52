#include "classic/RunParts.h"

#include <utility>

namespace quillmark {

// The resolver and the map files need each other, so the resolver takes the address of a member
// that is made after it.
RunParts::RunParts(RunContext runContext, RunSounds& sounds)
    : context(std::move(runContext)), limit(context.outside.messages, context.state),
      files(context.lists.FileList, context.comparison()), references(context.lists),
      inventory(context, limit, sounds), retrieval(context, limit, files),
      resolver(context, limit, references, mapFiles), mapFiles(context, retrieval, resolver),
      scanner(context, resolver), walk(context, limit, references, inventory, retrieval, scanner),
      referencePasses(context, limit, references, files), filePasses(context, limit, files) {}

} // namespace quillmark
