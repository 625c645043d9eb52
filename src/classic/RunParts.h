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

namespace quillmark {

/// The parts of one run, made anew for each: none of them remembers an earlier run.
struct RunParts {
    RunParts(RunContext runContext, RunSounds& sounds);

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
