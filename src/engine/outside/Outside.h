#pragma once

#include "engine/outside/EventLoop.h"
#include "engine/outside/FtpComponent.h"
#include "engine/outside/LocalDisk.h"
#include "engine/outside/Messages.h"
#include "engine/outside/RunWindow.h"
#include "engine/outside/SoundPlayer.h"
#include "engine/outside/UrlFetcher.h"
#include "store/Progress.h"

namespace quillmark {

/// Everything outside of the engine that a run talks to.
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
