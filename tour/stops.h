#pragma once

class Tour;

/// Prints the analysis to a PDF file, looks at the preview, and prints an overview of eight.
void visitPrinting(Tour& tour);
