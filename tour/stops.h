#pragma once

class Tour;

/// Analyses side by side: load, remove, save as a project, clear, load again.
void showOverview(Tour& tour);
