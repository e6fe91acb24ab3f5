#pragma once

namespace console {

/// While it lives, Ctrl-C does not end the program but is noted, so that long work can end without
/// a trace. The second one ends the program.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Also without such an object.
    static bool Asked();

private:
    bool installed_ = false;
};

}  // namespace console
