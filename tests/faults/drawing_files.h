#ifndef DRAWLOAD_TESTS_DRAWING_FILES_H
#define DRAWLOAD_TESTS_DRAWING_FILES_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// The project's own small drawings and the pictures that they name.
namespace drawing_files {

using Path = std::filesystem::path;

inline std::string BytesOf(const Path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const Path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::vector<Path> Folders() { return {DRAWLOAD_TEST_DATA "/drawings", DRAWLOAD_EXAMPLES}; }

/// All files with one of these extensions, in the order of their names.
inline std::vector<Path> WithExtension(const std::vector<std::string>& extensions) {
  std::vector<Path> found;
  for (const Path& folder : Folders()) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const std::string extension = entry.path().extension().string();
      if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
        found.push_back(entry.path());
      }
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

inline std::vector<Path> Drawings() { return WithExtension({".dxf", ".svg", ".pdf"}); }
inline std::vector<Path> Pictures() { return WithExtension({".png", ".bmp"}); }

/// Where the drawings look for a picture, from the current folder.
inline std::vector<Path> PlacesOf(const Path& picture) {
  return {picture.filename(), "examples" / picture.filename()};
}

inline void WritePicture(const Path& picture, const std::string& bytes) {
  std::filesystem::create_directory("examples");
  for (const Path& place : PlacesOf(picture)) WriteBytes(place, bytes);
}

inline void WritePicturesHere() {
  for (const Path& picture : Pictures()) WritePicture(picture, BytesOf(picture));
}

}  // namespace drawing_files

#endif
