#include "support/faulty_file_system.h"

namespace mirvane {

// The kernel closes what a killed program has open.
FaultyFileSystem::~FaultyFileSystem() {
  for (const auto handle : open_) (void)real_.close(handle);
}

std::error_code FaultyFileSystem::faultOf(const char* call) {
  const auto number = calls_.size();
  if (!isDead_) calls_.emplace_back(call);
  isDead_ = isDead_ || number == death_;
  if (isDead_) return std::make_error_code(std::errc::owner_dead);
  const bool isHit =
      fault_ && (fault_->isLasting ? number >= fault_->call : number == fault_->call);
  return isHit ? std::make_error_code(fault_->error) : std::error_code();
}

FileSystem::Handle FaultyFileSystem::noted(Handle handle) {
  if (handle.number != -1) open_.push_back(handle);
  return handle;
}

FileSystem::Status FaultyFileSystem::status(const Path& path, std::error_code& error) {
  error = faultOf("status");
  return error ? Status() : real_.status(path, error);
}

FileSystem::Path FaultyFileSystem::linkTarget(const Path& link, std::error_code& error) {
  error = faultOf("linkTarget");
  return error ? Path() : real_.linkTarget(link, error);
}

std::error_code FaultyFileSystem::checkWritable(const Path& path) {
  const auto error = faultOf("checkWritable");
  return error ? error : real_.checkWritable(path);
}

std::vector<std::string> FaultyFileSystem::namesIn(const Path& folder, std::error_code& error) {
  error = faultOf("namesIn");
  return error ? std::vector<std::string>() : real_.namesIn(folder, error);
}

FileSystem::Handle FaultyFileSystem::create(const Path& path, std::error_code& error) {
  error = faultOf("create");
  return error ? Handle() : noted(real_.create(path, error));
}

FileSystem::Handle FaultyFileSystem::openForReading(const Path& path, std::error_code& error) {
  error = faultOf("openForReading");
  return error ? Handle() : noted(real_.openForReading(path, error));
}

FileSystem::Handle FaultyFileSystem::openFolder(const Path& folder, std::error_code& error) {
  error = faultOf("openFolder");
  return error ? Handle() : noted(real_.openFolder(folder, error));
}

std::error_code FaultyFileSystem::lock(Handle file) {
  const auto error = faultOf("lock");
  return error ? error : real_.lock(file);
}

std::size_t FaultyFileSystem::read(Handle file, char* bytes, std::size_t size,
                                   std::error_code& error) {
  error = faultOf("read");
  return error ? 0 : real_.read(file, bytes, size, error);
}

std::size_t FaultyFileSystem::write(Handle file, std::string_view bytes, std::error_code& error) {
  error = faultOf("write");
  return error ? 0 : real_.write(file, bytes.substr(0, piece_), error);
}

std::error_code FaultyFileSystem::setPermissions(Handle file, unsigned permissions) {
  const auto error = faultOf("setPermissions");
  return error ? error : real_.setPermissions(file, permissions);
}

std::error_code FaultyFileSystem::sync(Handle handle) {
  const auto error = faultOf("sync");
  return error ? error : real_.sync(handle);
}

// A handle is gone even where closing it tells of an error.
std::error_code FaultyFileSystem::close(Handle handle) {
  const auto error = faultOf("close");
  if (isDead_) return error;
  std::erase_if(open_, [&](Handle open) { return open.number == handle.number; });
  const auto realError = real_.close(handle);
  return error ? error : realError;
}

std::error_code FaultyFileSystem::rename(const Path& from, const Path& to) {
  const auto error = faultOf("rename");
  return error ? error : real_.rename(from, to);
}

std::error_code FaultyFileSystem::remove(const Path& path) {
  const auto error = faultOf("remove");
  return error ? error : real_.remove(path);
}

}  // namespace mirvane
