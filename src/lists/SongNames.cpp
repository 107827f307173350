#include "lists/SongNames.h"

#include <algorithm>
#include <iterator>

#include "services/DataCop.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// Beside the library's own media, in order.
constexpr StringView kExtensions[] = {
    u"3g2",  u"3gp",  u"3gpp", u"669", u"aa",   u"aac",  u"aax",  u"ac3",  u"adts", u"aifc",
    u"amf",  u"amr",  u"amv",  u"ape", u"au",   u"avi",  u"awb",  u"caf",  u"dat",  u"dff",
    u"divx", u"dsf",  u"dts",  u"dv",  u"far",  u"flac", u"flv",  u"gdm",  u"gsm",  u"iff",
    u"it",   u"itz",  u"j2b",  u"kar", u"m1a",  u"m1v",  u"m2a",  u"m2p",  u"m2ts", u"m2v",
    u"m4a",  u"m4b",  u"m4p",  u"m4r", u"m4v",  u"mdz",  u"med",  u"mid",  u"midi", u"mjpg",
    u"mka",  u"mkv",  u"mmf",  u"mo3", u"mod",  u"mov",  u"mp+",  u"mp1",  u"mp2",  u"mp2v",
    u"mp4",  u"mp4v", u"mpa",  u"mpc", u"mpe",  u"mpeg", u"mpg",  u"mpga", u"mpv",  u"mpv2",
    u"mt2",  u"mtm",  u"mts",  u"nsf", u"nst",  u"nsv",  u"ofr",  u"ofs",  u"oga",  u"ogg",
    u"ogm",  u"ogv",  u"ogx",  u"okt", u"opus", u"psm",  u"ptm",  u"qcp",  u"qt",   u"ra",
    u"ram",  u"rm",   u"rmi",  u"rmj", u"rmm",  u"rmvb", u"rv",   u"s3m",  u"s3z",  u"shn",
    u"sid",  u"smf",  u"snd",  u"spc", u"spx",  u"stm",  u"tak",  u"tta",  u"ult",  u"umx",
    u"vob",  u"voc",  u"vox",  u"vqf", u"vql",  u"w64",  u"webm", u"wm",   u"wmd",  u"wmv",
    u"wow",  u"wv",   u"xm",   u"xmz", u"xvid"};
static_assert(std::is_sorted(std::begin(kExtensions), std::end(kExtensions)));

constexpr std::size_t kLongestExtension = 4;

}  // namespace

bool HasSongExtension(StringView path) {
  const StringView extension = Utility::GetExtension(LastComponent(path));
  String lower(extension.substr(0, kLongestExtension + 1));
  std::transform(lower.begin(), lower.end(), lower.begin(), ToLowerAscii);
  const std::span<const StringView> marks = DataCop::MediaMarks();
  return std::binary_search(std::begin(kExtensions), std::end(kExtensions), lower) ||
         std::any_of(marks.begin(), marks.end(),
                     [&](StringView mark) { return mark.substr(1) == lower; });
}

bool IsSongPath(StringView path) {
  return HasSongExtension(path) || DataCop::IsMediaPath(path);
}

}  // namespace norvo
