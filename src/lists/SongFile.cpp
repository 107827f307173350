#include "lists/SongFile.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/flacfile.h>
#include <taglib/itfile.h>
#include <taglib/modfile.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/s3mfile.h>
#include <taglib/speexfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>
#include <taglib/xmfile.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace norvo {
namespace {

constexpr auto kStyle = TagLib::AudioProperties::Average;

/// The other modules have no quick look, but are refused once they are opened.
bool MayBeModule(TagLib::IOStream*) {
  return true;
}

/// The tag library takes any file for one.
bool IsModule(TagLib::IOStream* stream) {
  constexpr std::array<std::string_view, 9> kMarks{"M.K.", "M!K!", "M&K!", "N.T.", "FLT4",
                                                   "FLT8", "OKTA", "OCTA", "CD81"};
  constexpr long kMarkAt = 1080;
  stream->seek(kMarkAt, TagLib::IOStream::Beginning);
  const TagLib::ByteVector bytes = stream->readBlock(4);
  const std::string_view mark(bytes.data(), bytes.size());
  return mark.ends_with("CHN") || std::find(kMarks.begin(), kMarks.end(), mark) != kMarks.end();
}

}  // namespace

struct SongFile::Kind {
  std::vector<StringView> extensions;
  bool (*isSupported)(TagLib::IOStream*);
  void (SongFile::*open)();
  /// A file that is called so can be one although it does not look so at once: a tag without sound,
  /// or sound without a type.
  bool byNameAlone = false;
};

/// In the order in which content is tried. What looks like MPEG frames stands in many files, so
/// that comes after all that begin with a name of their own.
std::span<const SongFile::Kind> SongFile::Kinds() {
  namespace T = TagLib;
  static const std::vector<Kind> kKinds{
      {{u"ogg", u"oga"}, T::Vorbis::File::isSupported, &SongFile::OpenPlain<T::Vorbis::File>},
      {{u"opus"}, T::Ogg::Opus::File::isSupported, &SongFile::OpenPlain<T::Ogg::Opus::File>},
      {{u"spx"}, T::Ogg::Speex::File::isSupported, &SongFile::OpenPlain<T::Ogg::Speex::File>},
      {{}, T::Ogg::FLAC::File::isSupported, &SongFile::OpenPlain<T::Ogg::FLAC::File>},
      {{u"flac", u"fla"}, T::FLAC::File::isSupported, &SongFile::OpenWithFrames<T::FLAC::File>},
      {{u"m4a", u"m4b", u"m4p", u"m4r", u"m4v", u"mp4", u"3gp", u"3g2", u"mov"},
       T::MP4::File::isSupported,
       &SongFile::OpenPlain<T::MP4::File>,
       true},
      {{u"wma", u"asf", u"wmv"}, T::ASF::File::isSupported, &SongFile::OpenPlain<T::ASF::File>},
      {{u"wav"}, T::RIFF::WAV::File::isSupported, &SongFile::OpenChunks<T::RIFF::WAV::File>},
      {{u"aif", u"aiff", u"aifc", u"afc"},
       T::RIFF::AIFF::File::isSupported,
       &SongFile::OpenChunks<T::RIFF::AIFF::File>},
      {{u"mpc", u"mp+", u"mpp"}, T::MPC::File::isSupported, &SongFile::OpenPlain<T::MPC::File>},
      {{u"wv"}, T::WavPack::File::isSupported, &SongFile::OpenPlain<T::WavPack::File>},
      {{u"tta"}, T::TrueAudio::File::isSupported, &SongFile::OpenWithFrames<T::TrueAudio::File>},
      {{u"ape"}, T::APE::File::isSupported, &SongFile::OpenPlain<T::APE::File>},
      {{u"mp3", u"mp2", u"mp1", u"mpga", u"aac"},
       T::MPEG::File::isSupported,
       &SongFile::OpenMpeg,
       true},
      {{u"it"}, MayBeModule, &SongFile::OpenPlain<T::IT::File>},
      {{u"s3m"}, MayBeModule, &SongFile::OpenPlain<T::S3M::File>},
      {{u"xm"}, MayBeModule, &SongFile::OpenPlain<T::XM::File>},
      {{u"mod", u"module", u"nst", u"wow"}, IsModule, &SongFile::OpenPlain<T::Mod::File>}};
  return kKinds;
}

SongFile::SongFile(BinaryFile& file, StringView name, bool readsSound)
    : bytes_(file), readsSound_(readsSound) {
  OpenByName(name);
  // Whether it is such a file at all, only its sound can tell then.
  if (!TellsAnything() && !std::exchange(readsSound_, true)) OpenByName(name);
  if (!TellsAnything()) OpenByContent();
}

void SongFile::OpenByName(StringView name) {
  const StringView extension = name.substr(name.rfind(u'.') + 1);
  for (const Kind& kind : Kinds()) {
    const auto isNamed = [extension](StringView one) { return EqualsIgnoreCase(one, extension); };
    if (!std::any_of(kind.extensions.begin(), kind.extensions.end(), isNamed)) continue;
    if (kind.byNameAlone || LooksLike(kind)) Open(kind);
  }
}

void SongFile::OpenByContent() {
  for (const Kind& kind : Kinds()) {
    if (LooksLike(kind) && Open(kind)) return;
  }
}

bool SongFile::LooksLike(const Kind& kind) {
  TagStream stream(bytes_);
  return kind.isSupported(&stream);
}

bool SongFile::Open(const Kind& kind) {
  file_.reset();
  chunkTag_.reset();
  stream_ = std::make_unique<TagStream>(bytes_);
  (this->*kind.open)();
  if (!file_->isValid()) file_.reset();
  return file_ != nullptr;
}

/// A file that is called MP3 is always taken for one.
bool SongFile::TellsAnything() const {
  if (!file_) return false;
  const TagLib::AudioProperties* const audio = file_->audioProperties();
  return chunkTag_ || !file_->tag()->isEmpty() || (audio && audio->lengthInMilliseconds() > 0);
}

template <class OpenedFile>
void SongFile::OpenPlain() {
  file_ = std::make_unique<OpenedFile>(stream_.get(), true, kStyle);
}

template <class OpenedFile>
void SongFile::OpenWithFrames() {
  file_ = std::make_unique<OpenedFile>(stream_.get(), &frames_, true, kStyle);
}

void SongFile::OpenMpeg() {
  file_ = std::make_unique<TagLib::MPEG::File>(stream_.get(), &frames_, readsSound_, kStyle);
}

template <class OpenedFile>
void SongFile::OpenChunks() {
  constexpr long kSize = 4;
  OpenPlain<OpenedFile>();
  if (!stream_->Id3Chunk()) return;
  chunkTag_ =
      std::make_unique<TagLib::ID3v2::Tag>(file_.get(), *stream_->Id3Chunk() + kSize, &frames_);
}

}  // namespace norvo
