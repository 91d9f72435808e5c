#include "base/user_locale.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>

namespace morvane {

char userDecimalSign() {
  const locale_t user = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (user == nullptr) return '.';
  const bool comma = std::string_view(nl_langinfo_l(RADIXCHAR, user)) == ",";
  freelocale(user);
  return comma ? ',' : '.';
}

}  // namespace morvane
