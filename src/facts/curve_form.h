#pragma once

// Which form of curve the charts get, for the plug-in and for programs.

/// Where the settings profile says so: 1 for guarded curves, else plain ones.
inline constexpr const char* kCurveSection = "Curve";
inline constexpr const char* kGuardKey = "Guard";
/// What stands over the profile for one run of a program: "guarded" or "plain".
inline constexpr const char* kCurveFormVariable = "GRDX_CURVE";
inline constexpr const char* kGuardedForm = "guarded";
inline constexpr const char* kPlainForm = "plain";

/// Radius of the dots that stand at measured points only, drawing units. By them a guarded curve's
/// own points are told from the measured ones: the filed curve has them all alike.
inline constexpr double kDotRadius = 0.5;
