// Pictures of tables as files, and what the sheet makes of tables of any size.

#include "table_picture.h"

#include "cmdapi/cma.h"
#include "files/files.h"
#include "odps/od_ps.h"
#include "support/kills.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <wx/init.h>

TEST(TablePicture, IsWholeAtAnyMoment)
{
    const wxInitializer toolkit;
    const support::TempFolder folder;
    const auto table = cma::createPlotStyleTable(false, L"");
    const std::filesystem::path path = folder / "table.png";
    support::killWhileReplacing(path, tablePicture(*table, 32), tablePicture(*table, 64),
                                [&]
                                {
                                    files::replace(path, tablePicture(*table, 64));
                                    return true;
                                });
}
