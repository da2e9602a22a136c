#pragma once

#include <rtl/ustring.hxx>

#include <string>
#include <string_view>

/// UTF-8 as UNO's text; bytes that are no UTF-8 become U+FFFD.
rtl::OUString ToUno(std::string_view text);

/// The URL of the file with the full path \p path.
rtl::OUString FileUrl(std::string_view path);
