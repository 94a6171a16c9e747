#pragma once

#include <QString>

/// Opens the viewer's window and runs until it is closed.
/// @param file  shown first; empty: an empty window
/// @return exit status: 0, or 1 when the file cannot be shown (said on standard error)
int runViewer(int& argc, char** argv, QString const& file);
