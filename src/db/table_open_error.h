#pragma once

/// Tables whose failed open is told to the user.
enum TableErrorCode : int {
    kSampleTableError = 2,     ///< z_c_QuYang
    kGrainSizeTableError = 3,  ///< Z_c_KeFen
    kTestItemTableError = 4,   ///< Z_c_KeFenCSXM
    kProjectTableError = 5     ///< x_GongCheng
};
/// Shows the message box of the table that could not be opened. Another code shows nothing.
void ReportTableOpenError(int code);
