#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace mirvane {

/// Passes every call on, except one that it makes fail, or before which the program "is killed":
/// from then on nothing it does has an effect any more, and every call fails. Calls are counted
/// from 0.
class FaultyFileSystem : public FileSystem {
 public:
  explicit FaultyFileSystem(FileSystem& real) : real_(real) {}
  ~FaultyFileSystem() override;
  FaultyFileSystem(const FaultyFileSystem&) = delete;
  FaultyFileSystem& operator=(const FaultyFileSystem&) = delete;

  void failAt(std::size_t call, std::errc error) { fault_ = {call, error}; }
  /// That call and all after it.
  void failFrom(std::size_t call, std::errc error) { fault_ = {call, error, true}; }
  void killAt(std::size_t call) { death_ = call; }
  /// No more bytes than these are written at once.
  void writeInPiecesOf(std::size_t bytes) { piece_ = bytes; }

  /// The names of the calls made so far.
  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }

  [[nodiscard]] Status status(const Path& path, std::error_code& error) override;
  [[nodiscard]] Path linkTarget(const Path& link, std::error_code& error) override;
  [[nodiscard]] std::error_code checkWritable(const Path& path) override;
  [[nodiscard]] std::vector<std::string> namesIn(const Path& folder,
                                                 std::error_code& error) override;
  [[nodiscard]] Handle create(const Path& path, std::error_code& error) override;
  [[nodiscard]] Handle openForReading(const Path& path, std::error_code& error) override;
  [[nodiscard]] Handle openFolder(const Path& folder, std::error_code& error) override;
  [[nodiscard]] std::error_code lock(Handle file) override;
  [[nodiscard]] std::size_t read(Handle file, char* bytes, std::size_t size,
                                 std::error_code& error) override;
  [[nodiscard]] std::size_t write(Handle file, std::string_view bytes,
                                  std::error_code& error) override;
  [[nodiscard]] std::error_code setPermissions(Handle file, unsigned permissions) override;
  [[nodiscard]] std::error_code sync(Handle handle) override;
  [[nodiscard]] std::error_code close(Handle handle) override;
  [[nodiscard]] std::error_code rename(const Path& from, const Path& to) override;
  [[nodiscard]] std::error_code remove(const Path& path) override;

 private:
  struct Fault {
    std::size_t call;
    std::errc error;
    bool isLasting = false;
  };

  /// Notes the call and answers with the error to be made.
  std::error_code faultOf(const char* call);
  Handle noted(Handle handle);

  FileSystem& real_;
  std::vector<std::string> calls_;
  std::optional<Fault> fault_;
  std::optional<std::size_t> death_;
  bool isDead_ = false;
  std::size_t piece_ = std::string::npos;
  std::vector<Handle> open_;
};

}  // namespace mirvane
