#include "src/frame/command_table.h"

#include "platform/ap/AcApDocManager.h"
#include "src/common/module_state.h"
#include "src/edit/store_command.h"
#include "src/frame/ChartFamily.h"
#include "src/frame/chart_driver.h"
#include "src/frame/chart_openers.h"
#include "src/frame/documents.h"

namespace {

/// Only the application context may switch, open and close drawings.
void RunInApplicationContext(void (*body)(void*)) {
    if (acDocManager->curDocument() != nullptr) {
        acDocManager->executeInApplicationContext(body, nullptr);
    }
}

void CGRDX() {
    ChartMode = kSampleCharts;
    if (CheckSingleDocument(SampleCharts().guardCaption)) {
        RunInApplicationContext(DrawSampleCharts);
    }
}

void CLGRDX() {
    // A refusal leaves the mode to whatever was last drawn or opened.
    if (CheckSingleDocument(LayerCharts().guardCaption)) {
        ChartMode = kLayerCharts;
        RunInApplicationContext(DrawLayerCharts);
    }
}

void EGRDX() {
    ChartMode = kSampleCharts;
    RunInApplicationContext(OpenSampleChart);
}

void ELGRDX() {
    ChartMode = kLayerCharts;
    RunInApplicationContext(OpenLayerChart);
}

}  // namespace

const std::array<CommandEntry, 5>& CommandTable() {
    static constexpr std::array<CommandEntry, 5> commands = {{{"CGRDX", ACRX_CMD_MODAL, CGRDX},
                                                              {"CLGRDX", ACRX_CMD_MODAL, CLGRDX},
                                                              {"EGRDX", ACRX_CMD_SESSION, EGRDX},
                                                              {"ELGRDX", ACRX_CMD_SESSION, ELGRDX},
                                                              {"SGRDX", ACRX_CMD_MODAL, SGRDX}}};
    return commands;
}

void AddCommands() {
    for (const CommandEntry& command : CommandTable()) {
        acedRegCmds->addCommand(kCommandGroup, command.name, command.name, command.flags,
                                command.function);
    }
}

void RemoveCommands() {
    acedRegCmds->removeGroup(kCommandGroup);
}
