#include "texts/shell_errors.h"

#include "win/shell.h"

#include "ids.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

namespace kelvane {
namespace {

struct ShellError {
    int answer;
    int text;
};

constexpr ShellError kErrors[] = {
    {0, IDS_SHELL_OUT_OF_MEMORY},
    {SE_ERR_FNF, IDS_SHELL_FILE_NOT_FOUND},
    {SE_ERR_PNF, IDS_SHELL_PATH_NOT_FOUND},
    {SE_ERR_ACCESSDENIED, IDS_SHELL_ACCESS_DENIED},
    {SE_ERR_OOM, IDS_SHELL_OUT_OF_MEMORY_2},
    {ERROR_BAD_FORMAT, IDS_SHELL_BAD_FORMAT},
    {SE_ERR_SHARE, IDS_SHELL_SHARING_VIOLATION},
    {SE_ERR_ASSOCINCOMPLETE, IDS_SHELL_INCOMPLETE_ASSOCIATION},
    {SE_ERR_DDETIMEOUT, IDS_SHELL_DDE_TIMEOUT},
    {SE_ERR_DDEFAIL, IDS_SHELL_DDE_FAILED},
    {SE_ERR_DDEBUSY, IDS_SHELL_DDE_BUSY},
    {SE_ERR_NOASSOC, IDS_SHELL_NO_ASSOCIATION},
    {SE_ERR_DLLNOTFOUND, IDS_SHELL_DLL_NOT_FOUND},
};

} // namespace

int shell_error_text(int answer) {
    if (answer > win::kLastShellError) return 0;
    const auto* known = std::ranges::find(kErrors, answer, &ShellError::answer);
    return known != std::end(kErrors) ? known->text : IDS_SHELL_ERROR;
}

} // namespace kelvane
