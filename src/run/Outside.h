#pragma once

#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/LocalDisk.h"
#include "run/Messages.h"
#include "run/RunListener.h"
#include "run/SiteSource.h"
#include "run/UrlFetcher.h"

namespace quillmark {

/// Everything outside a run that the run talks to.
struct Outside {
    Messages& messages;
    LocalDisk& disk;
    FtpComponent& ftp;
    UrlFetcher& inet;
    RunListener& listener;
    EventLoop& events;
    SiteSource& site; ///< The local disk, as the web rules read it.
};

} // namespace quillmark
