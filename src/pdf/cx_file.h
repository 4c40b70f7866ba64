#ifndef DRAWLOAD_PDF_CX_FILE_H
#define DRAWLOAD_PDF_CX_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

namespace pdf {

/// The file that the picture decoding reads from. The results are those of the C functions of the same names.
class CxFile {
 public:
  virtual ~CxFile() = default;
  virtual bool Close() = 0;
  virtual std::size_t Read(void* buffer, std::size_t size, std::size_t count) = 0;
  virtual std::size_t Write(const void* buffer, std::size_t size, std::size_t count) = 0;
  virtual bool Seek(std::int64_t offset, int origin) = 0;
  virtual std::int64_t Tell() = 0;
  virtual std::int64_t Size() = 0;
  virtual bool Flush() = 0;
  virtual bool Eof() = 0;
  virtual std::int32_t Error() = 0;
  virtual bool PutC(std::uint8_t byte) { return Write(&byte, 1, 1) == 1; }
  virtual std::int32_t GetC() = 0;
  virtual char* GetS(char* line, std::int32_t size) = 0;
  virtual std::int32_t Scanf(const char* format, ...) = 0;
};

/// A `CxFile` on a `FILE` handle. It closes the handle only if it opened it. Without a handle every operation
/// fails.
class CxIOFile : public CxFile {
 public:
  explicit CxIOFile(std::FILE* openFile = nullptr) : file(openFile) {}
  CxIOFile(const CxIOFile&) = delete;
  CxIOFile& operator=(const CxIOFile&) = delete;
  ~CxIOFile() override { CxIOFile::Close(); }

  bool Open(const char* path, const char* mode);
  /// Reads from `bytes`, which must outlive the file.
  bool OpenBytes(std::string_view bytes);

  bool Close() override;
  std::size_t Read(void* buffer, std::size_t size, std::size_t count) override;
  std::size_t Write(const void* buffer, std::size_t size, std::size_t count) override;
  bool Seek(std::int64_t offset, int origin) override;
  std::int64_t Tell() override;
  std::int64_t Size() override;
  bool Flush() override;
  bool Eof() override;
  std::int32_t Error() override;
  bool PutC(std::uint8_t byte) override;
  std::int32_t GetC() override;
  char* GetS(char* line, std::int32_t size) override;
  std::int32_t Scanf(const char* format, ...) override;

 private:
  bool Take(std::FILE* opened);

  std::FILE* file;
  bool isOwned = false;
};

}  // namespace pdf

#endif
