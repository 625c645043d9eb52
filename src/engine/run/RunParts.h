#pragma once

#include "engine/inventory/HostInventory.h"
#include "engine/resolve/FiledReferences.h"
#include "engine/resolve/ReferenceResolver.h"
#include "engine/run/ListLimit.h"
#include "engine/run/RunContext.h"
#include "engine/run/SiteWalk.h"
#include "engine/scan/MapFiles.h"
#include "engine/scan/PageRetrieval.h"
#include "engine/scan/Scanner.h"
#include "engine/verify/FilePasses.h"
#include "engine/verify/IgnoredPasses.h"
#include "engine/verify/ReferencePasses.h"
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
    IgnoredPasses ignoredPasses;
};

} // namespace quillmark
