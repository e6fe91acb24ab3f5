#pragma once

/// Results of the command-line and query functions.
inline constexpr int RTNORM = 5100;    ///< done
inline constexpr int RTERROR = -5001;  ///< failed, or nothing answered
inline constexpr int RTCAN = -5002;    ///< the user cancelled

/// Kinds of value in a resbuf.
inline constexpr int RTREAL = 5001;
inline constexpr int RTSHORT = 5003;
inline constexpr int RTSTR = 5005;

/// A value of a system variable. A text belongs to whoever frees the buffer.
struct resbuf {
    short restype = 0;
    union {
        double rreal;
        short rint;
        char* rstring;
    } resval{};
};
