#include "StoryWords.h"

#include "ManagementValues.h"

namespace system_tests {

void StoryWords::expectEnd() const
{
   if (!atEnd()) {
      throw Unreadable("nothing takes " + _words[_next]);
   }
}

std::string StoryWords::take(char const* kind)
{
   if (atEnd()) {
      throw Unreadable(std::string("there is no ") + kind);
   }
   return _words[_next++];
}

// The last of three or more may be left out, as in the interface.
std::wstring StoryWords::read(codes::S)
{
   if (_blank || (atEnd() && _arguments > 2)) {
      return {};
   }
   std::string const word = take("text");
   if (word.find('@') != std::string::npos || word.rfind("$fom/", 0) == 0) {
      throw Unreadable(word + " is no mere text");
   }
   return _stage.text(word);
}

std::wstring StoryWords::read(codes::URL) { return _blank ? std::wstring() : _stage.text(take("module")); }

std::set<std::wstring> StoryWords::read(codes::NameSet)
{
   std::set<std::wstring> all;
   for (; !atEnd(); ++_next) {
      all.insert(wide(_words[_next]));
   }
   return all;
}

// Words of which one tells by the $ that they are files.
std::vector<std::wstring> StoryWords::read(codes::URLX)
{
   std::vector<std::wstring> all;
   for (; !atEnd() && _words[_next].find('$') != std::string::npos; ++_next) {
      all.push_back(_stage.text(_words[_next]));
   }
   return all;
}

VariableLengthData StoryWords::read(codes::BX)
{
   bool const isThere = !atEnd() && _words[_next].rfind("tag=", 0) == 0;
   return bytes(isThere ? _words[_next++].substr(4) : "");
}

bool StoryWords::read(codes::Z)
{
   bool const isFalse = !atEnd() && (_words[_next] == "passively" || _words[_next] == "unsuccessfully");
   _next += isFalse ? 1 : 0;
   return !isFalse;
}

RangeBounds StoryWords::read(codes::RB)
{
   std::string const word = _blank ? "0..1" : take("range");
   std::size_t const dots = word.find("..");
   if (dots == std::string::npos) {
      throw Unreadable(word + " is no range");
   }
   return RangeBounds(std::stoul(word.substr(0, dots)), std::stoul(word.substr(dots + 2)));
}

VariableLengthData StoryWords::value(std::string const& word) const
{
   auto const written = writtenManagementValue(_stage.handlesIn(word));
   return bytes(written.empty() ? word : written);
}

// The first argument as it is, and "at" it where it comes behind others.
std::unique_ptr<LogicalTime> StoryWords::read(codes::LT)
{
   if (!_blank && _arguments > 1 && take("time") != "at") {
      throw Unreadable("a time stands behind \"at\"");
   }
   return _stage.time(_blank ? "0" : take("time"), _federate);
}

std::unique_ptr<LogicalTimeInterval> StoryWords::read(codes::LTI)
{
   return _stage.interval(_blank ? "0" : take("interval"));
}

AttributeHandleSetRegionHandleSetPairVector StoryWords::read(codes::ASRSPL)
{
   AttributeHandleSetRegionHandleSetPairVector all;
   for (std::size_t at = 0; !atEnd() && (at = _words[_next].find('@')) != std::string::npos; ++_next) {
      all.emplace_back(handles<AttributeHandle>(_words[_next].substr(0, at)),
                       handles<RegionHandle>(_words[_next].substr(at + 1)));
   }
   return all;
}

} // namespace system_tests
