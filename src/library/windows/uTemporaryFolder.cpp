#include "uTemporaryFolder.h"

#include "uPath.h"

namespace murala
{

// The temporary folder of a user is that user's alone.
std::string TemporaryFolder()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path common = fs::temp_directory_path(error);
    const fs::path folder = common / "Murala";
    if (!error)
        fs::create_directory(folder, error);
    if (error || !fs::is_directory(fs::symlink_status(folder, error)))
        throw EFileError("There is no folder for temporary files: " + error.message());
    return WithTrailingDivider(PathText(folder));
}

} // namespace murala
