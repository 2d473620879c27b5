#include "SystemReason.h"

#include <moxcore/config/Localizer.h>

#include <cerrno>
#include <string_view>
#include <system_error>

namespace moxaudiotoolkit {
namespace {

// Empty for those that a user hardly meets.
std::string_view LiteralOf(int error) {
  switch (error) {
    case ENOENT:
      return "$$$/moxaudiotoolkit/System/NoEntry=there is no such file or folder";
    case ENOTDIR:
      return "$$$/moxaudiotoolkit/System/NoFolder=a part of its path is no folder";
    case EISDIR:
      return "$$$/moxaudiotoolkit/System/IsFolder=it is a folder";
    case EACCES:
    case EPERM:
      return "$$$/moxaudiotoolkit/System/NotPermitted=you have no permission";
    case ENOSPC:
      return "$$$/moxaudiotoolkit/System/NoSpace=there is no space left on the disk";
    case EDQUOT:
      return "$$$/moxaudiotoolkit/System/Quota=your share of the disk is used up";
    case EFBIG:
      return "$$$/moxaudiotoolkit/System/TooLarge=files can't be that large there";
    case EROFS:
      return "$$$/moxaudiotoolkit/System/ReadOnly=the disk can only be read";
    case EIO:
      return "$$$/moxaudiotoolkit/System/DiskFault=the disk or its connection failed";
    case ENAMETOOLONG:
      return "$$$/moxaudiotoolkit/System/LongName=its name is too long";
    case ELOOP:
      return "$$$/moxaudiotoolkit/System/LinkLoop=its path leads in a circle";
    case EMFILE:
    case ENFILE:
      return "$$$/moxaudiotoolkit/System/TooManyFiles=too many files are open";
    case EBUSY:
    case ETXTBSY:
      return "$$$/moxaudiotoolkit/System/Busy=another program is using it";
    default:
      return {};
  }
}

}  // namespace

std::string SystemReason(int error) {
  const std::string_view literal = LiteralOf(error);
  if (literal.empty()) {
    return std::generic_category().message(error);
  }
  const moxcore::Utf8String text = moxcore::config::Localizer::Get().GetUTF8String(literal);
  return {text.begin(), text.end()};
}

}  // namespace moxaudiotoolkit
