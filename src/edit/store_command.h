#pragma once

/// The store command: writes the values of a curve that the user picks back to the project
/// database, in the document's context. Once a curve is picked and its project checked,
/// CurveDataChanged is 0 whatever came of the store. Without a chart mode nothing is stored and
/// the curve stays changed.
void SGRDX();
