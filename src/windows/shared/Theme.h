#pragma once

#include <QApplication>
#include <QPalette>

namespace quillmark {

/// Whose colours the windows have.
enum class ThemeChoice { System, Light, Dark };

/// Gives the windows their colours, both those that exist and those made later. System keeps the
/// colours that the desktop gives to programs; if it gives none, our own are used, dark if its
/// colour scheme says so. Light and Dark are always our own.
void applyTheme(QApplication& application, ThemeChoice choice);

/// The program's own colours: soft greys and one accent. Dark is the colour of outlines, Link the
/// colour of the outline of the control with the focus.
QPalette lightPalette();
/// The same for dark rooms.
QPalette darkPalette();

} // namespace quillmark
