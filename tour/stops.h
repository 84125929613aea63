#pragma once

class Tour;

/// Opens the unit converter of a conductivity, a hardness and a calcium, with mouse and keyboard.
void showConverter(Tour& tour);
/// Titration volume, information and version, by mouse and by keyboard.
void showSmallWindows(Tour& tour);
/// Analyses side by side: load, print, remove, save as a project, clear, load again.
void showOverview(Tour& tour);
/// Prints the analysis to a PDF file and looks at the preview.
void visitPrinting(Tour& tour);
