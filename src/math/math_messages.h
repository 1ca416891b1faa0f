// Every text that the maths functions print or answer.
#ifndef MATH_MESSAGES_H
#define MATH_MESSAGES_H

// Reasons of ml_matUnhomo. The first serves all three axes as it stands.
constexpr const char* kMlAxisNotUnit = "x-axis not unit: %f";
constexpr const char* kMlXyNotPerpendicular = "xy not perpendicular: %f";
constexpr const char* kMlYzNotPerpendicular = "yz not perpendicular: %f";
constexpr const char* kMlZxNotPerpendicular = "zx not perpendicular: %f";

// ml_matTesthomo, on standard output: the label, then the reason.
constexpr const char* kMlTesthomoFormat = "%s: %s\n";

// ml_matPrint, on standard output: one line per row.
constexpr const char* kMlMatRowFormat = "%f %f %f %f\n";

#endif
