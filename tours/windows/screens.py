"""The screens of the tour, each a few programs side by side and the places that are visited there."""

import crash_report_screen
import desktop_screen
import files_screen
import programs_screen

ALL = (programs_screen.visit, files_screen.visit, desktop_screen.visit, crash_report_screen.visit)
