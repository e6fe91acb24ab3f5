#pragma once

class QAction;

namespace desk {

class MainWindow;

/// Fills the window's menu bar and tool bar.
void MakeMenus(MainWindow& window);

}  // namespace desk
