#include "platform/disk/FileMove.h"
