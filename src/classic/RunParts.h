#pragma once

#include "classic/SiteWalk.h"
#include "classic/inventory/HostInventory.h"
#include "classic/resolve/FiledReferences.h"
#include "classic/resolve/ReferenceResolver.h"
#include "classic/scan/MapFiles.h"
#include "classic/scan/PageRetrieval.h"
#include "classic/scan/Scanner.h"
#include "classic/verify/FilePasses.h"
#include "classic/verify/ReferencePasses.h"
#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "store/LineIndex.h"

#include <utility>

namespace quillmark {

/// The parts of one run, made anew for each: none of them remembers an earlier run.
struct RunParts {
    // The resolver and the map files need each other, so the resolver takes the address of a member
    // that is made after it.
    RunParts(RunContext runContext, RunSounds& sounds)
        : context(std::move(runContext)), limit(context.outside.messages, context.state),
          files(context.lists.FileList, context.comparison()), references(context.lists),
          inventory(context, limit, sounds), retrieval(context, limit, files),
          resolver(context, limit, references, mapFiles), mapFiles(context, retrieval, resolver),
          scanner(context, resolver),
          walk(context, limit, references, inventory, retrieval, scanner),
          referencePasses(context, limit, references, files), filePasses(context, limit, files) {}

    RunContext context;
    ListLimit limit;
    LineIndex files;
    FiledReferences references;
    HostInventory inventory;
    PageRetrieval retrieval;
    ReferenceResolver resolver;
    MapFiles mapFiles;
    Scanner scanner;
    SiteWalk walk;
    ReferencePasses referencePasses;
    FilePasses filePasses;
};

} // namespace quillmark
