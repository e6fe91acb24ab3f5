#include "apps/grdx/CallTable.h"

int main(int argc, char** argv) {
    console::CallTable calls;
    console::AddNewCall(calls);
    console::AddCopyCall(calls);
    console::AddImportCalls(calls);
    console::AddListCall(calls);
    console::AddProjectCall(calls);
    console::AddCheckCall(calls);
    console::AddExportCalls(calls);
    console::AddDrawCalls(calls);
    console::AddInfoCall(calls);
    console::AddPlotCall(calls);
    console::AddScriptCall(calls);
    return calls.Run(argc, argv);
}
