#pragma once

class Tour;

/// Titration volume, information and version, by mouse and by keyboard.
void showSmallWindows(Tour& tour);
