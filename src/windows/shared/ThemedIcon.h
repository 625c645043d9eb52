#pragma once

#include <QIcon>
#include <QString>

namespace quillmark {

/// One of the program's own icons, by the name of its file in assets/icons: "start", "help". It is
/// drawn in the current text colour of buttons, so it follows the palette by itself, and is sharp
/// at any size. "quillmark" is the program's emblem, in its own colours. An unknown name gives a
/// null icon.
QIcon themedIcon(const QString& name);

/// The program's emblem, for its windows.
QIcon applicationIcon();

} // namespace quillmark
