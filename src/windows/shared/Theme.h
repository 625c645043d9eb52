#pragma once

#include <QApplication>
#include <QPalette>

namespace quillmark {

/// Whose colours the windows have.
enum class ThemeChoice { System, Light, Dark };

/// Gives the windows their colours, now and for windows made later. System keeps the colours that
/// the desktop gives to programs; a desktop that gives none gets ours, dark where its colour scheme
/// says so. Light and Dark are always ours.
void applyTheme(QApplication& application, ThemeChoice choice);

/// The program's own colours: soft greys and one accent. Dark is the colour of outlines, Link that
/// of the outline where the keys go.
QPalette lightPalette();
/// The same for dark rooms.
QPalette darkPalette();

} // namespace quillmark
