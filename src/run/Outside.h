#pragma once

#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/LocalDisk.h"
#include "run/Messages.h"
#include "run/RunWindow.h"
#include "run/SoundPlayer.h"
#include "run/UrlFetcher.h"
#include "store/Progress.h"

namespace quillmark {

/// Everything outside of a run that it talks to.
struct Outside {
    Messages& messages;
    LocalDisk& disk;
    FtpComponent& ftp;
    UrlFetcher& inet;
    Progress& progress;
    SoundPlayer& sounds;
    RunWindow& window;
    EventLoop& events;
};

} // namespace quillmark
