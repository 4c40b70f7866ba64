#include "batch_inputs.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

bool IsDrawing(const fs::path& path) {
  std::string extension = path.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == ".dxf" || extension == ".svg" || extension == ".pdf";
}

bool MayBeRead(const fs::path& folder) { return access(folder.c_str(), R_OK | X_OK) == 0; }

/// The drawings below `folder`, but those below `outputs`, and the folders that may not be read.
std::vector<fs::path> DrawingsBelow(const fs::path& folder, const fs::path& outputs) {
  std::vector<fs::path> found;
  std::error_code error;
  fs::recursive_directory_iterator it(folder, error);
  for (; !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
    std::error_code unknown;
    if (it->is_directory(unknown) && !it->is_symlink(unknown)) {
      const bool isOurs = fs::equivalent(it->path(), outputs, unknown);
      if (isOurs || !MayBeRead(it->path())) it.disable_recursion_pending();
      if (!isOurs && !MayBeRead(it->path())) found.push_back(it->path());
    } else if (IsDrawing(it->path()) && it->is_regular_file(unknown)) {
      found.push_back(it->path());
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

/// Hands out output names, each only once.
class OutputNames {
 public:
  explicit OutputNames(const std::string& outputExtension) : extension("." + outputExtension) {}

  std::string For(const fs::path& relative) {
    std::string name = relative.string() + extension;
    for (int copy = 2; !taken.insert(name).second; ++copy) {
      name = relative.string() + "-" + std::to_string(copy) + extension;
    }
    return name;
  }

 private:
  std::string extension;
  std::set<std::string> taken;
};

}  // namespace

std::vector<BatchInput> CollectInputs(const std::vector<std::string>& paths, const std::string& outputs,
                                      const std::string& extension) {
  std::vector<BatchInput> inputs;
  OutputNames names(extension);
  for (const std::string& path : paths) {
    std::error_code error;
    if (!fs::is_directory(path, error) || !MayBeRead(path)) {
      inputs.push_back({path, names.For(fs::path(path).filename())});
      continue;
    }
    for (const fs::path& drawing : DrawingsBelow(path, outputs)) {
      inputs.push_back({drawing.string(), names.For(drawing.lexically_relative(path))});
    }
  }
  return inputs;
}
