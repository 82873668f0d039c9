#include "backends/sound/disc/disc_text.h"

#include <map>

namespace vantora {

namespace {

const char* Plain(wchar_t letter) {
  static const std::map<wchar_t, const char*> kPlain = {
      {L'\u2018', "'"},   {L'\u2019', "'"},    {L'\u201A', ","},    {L'\u201C', "\""},
      {L'\u201D', "\""},  {L'\u201E', "\""},   {L'\u2039', "<"},    {L'\u203A', ">"},
      {L'\u2013', "-"},   {L'\u2014', "-"},    {L'\u2026', "..."},  {L'\u2022', "*"},
      {L'\u2020', "+"},   {L'\u2021', "++"},   {L'\u02C6', "^"},    {L'\u02DC', "~"},
      {L'\u20AC', "EUR"}, {L'\u2122', "(TM)"}, {L'\u2030', "o/oo"}, {L'\u0192', "f"},
      {L'\u0152', "OE"},  {L'\u0153', "oe"},   {L'\u0160', "S"},    {L'\u0161', "s"},
      {L'\u017D', "Z"},   {L'\u017E', "z"},    {L'\u0178', "Y"}};
  const auto found = kPlain.find(letter);
  return found != kPlain.end() ? found->second : "?";
}

}  // namespace

std::string DiscText(const Text& text) {
  std::string bytes;
  for (const wchar_t letter : text) {
    const auto code = std::char_traits<wchar_t>::to_int_type(letter);
    if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
      bytes += ' ';
    } else if (code <= 0xFF) {
      bytes += static_cast<char>(code);
    } else {
      bytes += Plain(letter);
    }
  }
  return bytes;
}

}  // namespace vantora
