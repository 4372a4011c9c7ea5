"""The screens of the tour: programs of GTK 3 and of Qt 6 that nobody here wrote, and Pointalk's own panel."""

import gtk_screen
import panel_screen
import qt_screen

ALL = (gtk_screen.visit, qt_screen.visit, panel_screen.visit)
