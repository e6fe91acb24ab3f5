#include "apps/grdx/Interrupt.h"

#include <csignal>

namespace console {

namespace {
volatile std::sig_atomic_t asked = 0;

void Note(int /*signal*/) {
    asked = 1;
}
}  // namespace

Interrupt::Interrupt() {
    struct sigaction before = {};
    if (sigaction(SIGINT, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) {
        return;  // who started the program wants it left alone
    }
    struct sigaction action = {};
    action.sa_handler = Note;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    installed_ = sigaction(SIGINT, &action, nullptr) == 0;
}

Interrupt::~Interrupt() {
    if (installed_) {
        std::signal(SIGINT, SIG_DFL);
    }
}

bool Interrupt::Asked() {
    return asked != 0;
}

}  // namespace console
