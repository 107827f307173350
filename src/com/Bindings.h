#pragma once

#include "com/Dispatcher.h"
#include "com/NorvoPlayList.h"

/// The early-bound members of every class, one line each; all else comes from the member tables.

#define NORVO_GET(Type, Name)                     \
  STDMETHODIMP get_##Name(Type* value) override { \
    return this->Call(u"" #Name, value);          \
  }
#define NORVO_LET(Type, Name)                    \
  STDMETHODIMP put_##Name(Type value) override { \
    return this->Let(u"" #Name, value);          \
  }
#define NORVO_SET(Type, Name)                       \
  STDMETHODIMP putref_##Name(Type value) override { \
    return this->Let(u"" #Name, value);             \
  }
#define NORVO_PROPERTY(Type, Name) \
  NORVO_GET(Type, Name)            \
  NORVO_LET(Type, Name)
#define NORVO_NODE(Type, Name)  \
  NORVO_GET(_ArtistItem*, Name) \
  NORVO_SET(Type, Name)
#define NORVO_METHOD(Type, Name)             \
  STDMETHODIMP Name(Type* result) override { \
    return this->Call(u"" #Name, result);    \
  }
#define NORVO_METHOD_1(Type, Name, A)             \
  STDMETHODIMP Name(A a, Type* result) override { \
    return this->Call(u"" #Name, result, a);      \
  }
#define NORVO_METHOD_2(Type, Name, A, B)               \
  STDMETHODIMP Name(A a, B b, Type* result) override { \
    return this->Call(u"" #Name, result, a, b);        \
  }
#define NORVO_METHOD_3(Type, Name, A, B, C)                 \
  STDMETHODIMP Name(A a, B b, C c, Type* result) override { \
    return this->Call(u"" #Name, result, a, b, c);          \
  }

namespace norvo::com {

class HelperManBinding : public Dispatcher<_helperMan> {
 public:
  using Dispatcher::Dispatcher;
  NORVO_METHOD_1(VARIANT_BOOL, GenericQueue, long*)
  NORVO_METHOD(SAFEARRAY*, GetPLSList)
  NORVO_METHOD_1(BSTR, PlayListToIni, BSTR)
  NORVO_METHOD_1(long, ParsePLSHeader, BSTR)
  NORVO_METHOD_1(long, ParseM3UHeader, BSTR)
  NORVO_METHOD(VARIANT_BOOL, GetAllPlaylists)
  NORVO_METHOD(VARIANT_BOOL, UpdateTotalFileSize)
  NORVO_METHOD_1(VARIANT_BOOL, MigrateMediaByType, BSTR*)
  NORVO_METHOD_3(BSTR, DataGrabber, BSTR*, BSTR*, BSTR*)
};

class PlayListBinding : public Dispatcher<_PlayList> {
 public:
  using Dispatcher::Dispatcher;
  NORVO_METHOD_1(VARIANT_BOOL, ReadPlayList, BSTR*)
  NORVO_METHOD_1(VARIANT_BOOL, WriteGeneric, BSTR*)
  NORVO_GET(_Entries*, PlayListEntries)
  NORVO_METHOD(VARIANT_BOOL, WriteRawPlayList)
  NORVO_METHOD_1(VARIANT_BOOL, ReadGeneric, BSTR*)
  NORVO_METHOD_2(BSTR, GetNewPlayListPath, BSTR, long*)
  NORVO_PROPERTY(VARIANT, CreationTime)
  NORVO_PROPERTY(VARIANT, PlayListName)
  NORVO_PROPERTY(long, PlayListType)
  NORVO_PROPERTY(BSTR, OriginalFileName)
  NORVO_PROPERTY(VARIANT, TotalSongs)
  NORVO_PROPERTY(BSTR, ASX_AllowShuffle)
  NORVO_PROPERTY(BSTR, ASX_Artist)
  NORVO_PROPERTY(BSTR, ASX_Album)
  NORVO_PROPERTY(BSTR, ASX_Author)
  NORVO_PROPERTY(BSTR, ASX_Title)
  NORVO_PROPERTY(BSTR, ASX_Version)
  NORVO_PROPERTY(BSTR, ASX_PlayListAttribute)
};

class PlayListsBinding : public Dispatcher<_PlayLists> {
 public:
  using Dispatcher::Dispatcher;
  STDMETHODIMP Add(IDispatch* playList) override { return Run(u"Add", playList); }
  NORVO_METHOD_1(IDispatch*, Item, long*)
  NORVO_METHOD_1(VARIANT_BOOL, Remove, BSTR*)
  NORVO_GET(short, Count)
  NORVO_GET(long, TotalSongs)
  NORVO_GET(long, TotalPlayLists)
};

class EntriesBinding : public Dispatcher<_Entries> {
 public:
  using Dispatcher::Dispatcher;
  NORVO_GET(short, Count)
  STDMETHODIMP Add(IDispatch* entry) override { return Run(u"Add", entry); }
  NORVO_METHOD_1(IDispatch*, Item, long*)
  NORVO_METHOD_1(VARIANT_BOOL, Remove, BSTR*)
  NORVO_PROPERTY(long, CollectionType)
  NORVO_GET(long, TotalSongs)
};

class EntryBinding : public Dispatcher<_Entry> {
 public:
  using Dispatcher::Dispatcher;
  NORVO_PROPERTY(BSTR, AlbumName)
  NORVO_PROPERTY(BSTR, ArtistName)
  NORVO_PROPERTY(BSTR, SongName)
  NORVO_PROPERTY(BSTR, CreationDate)
  NORVO_PROPERTY(VARIANT, Duration)
  NORVO_GET(long, EntryType)
  NORVO_LET(long*, EntryType)
  NORVO_PROPERTY(BSTR, FileName)
  NORVO_GET(double, FileSize)
  NORVO_PROPERTY(BSTR, Genre)
  NORVO_PROPERTY(long, NativeFormat)
  NORVO_PROPERTY(BSTR, PlayListName)
  NORVO_PROPERTY(BSTR, SongTitle)
  NORVO_PROPERTY(BSTR, SourceURL)
  NORVO_PROPERTY(long, Urltype)
  NORVO_PROPERTY(BSTR, TrackNumber)
  NORVO_METHOD(BSTR, DestinationPath)
  NORVO_METHOD(VARIANT_BOOL, GetID3TagInfo)
};

/// What the three format entries share.
template <class Interface>
class FormatEntryBinding : public Dispatcher<Interface> {
 public:
  using Dispatcher<Interface>::Dispatcher;
  NORVO_PROPERTY(BSTR, Entry_AlbumName)
  NORVO_PROPERTY(BSTR, Entry_ArtistName)
  NORVO_PROPERTY(BSTR, Entry_CreationDate)
  NORVO_PROPERTY(VARIANT, Entry_Duration)
  NORVO_GET(long, Entry_EntryType)
  NORVO_LET(long*, Entry_EntryType)
  NORVO_PROPERTY(BSTR, Entry_FileName)
  NORVO_GET(double, Entry_FileSize)
  NORVO_PROPERTY(BSTR, Entry_Genre)
  NORVO_METHOD(VARIANT_BOOL, Entry_GetID3TagInfo)
  NORVO_METHOD(BSTR, Entry_DestinationPath)
  NORVO_LET(long, Entry_NativeFormat)
  NORVO_PROPERTY(BSTR, Entry_PlayListName)
  NORVO_PROPERTY(BSTR, Entry_SongTitle)
  NORVO_PROPERTY(BSTR, Entry_TrackNumber)
  NORVO_PROPERTY(BSTR, Entry_SongName)
  NORVO_PROPERTY(BSTR, Entry_SourceURL)
  NORVO_PROPERTY(long, Entry_URLType)
  NORVO_PROPERTY(VARIANT_BOOL, HasExtendedInfo)
};

class AsxEntryBinding : public FormatEntryBinding<_AsxEntry> {
 public:
  using FormatEntryBinding::FormatEntryBinding;
  NORVO_PROPERTY(BSTR, ASX_Author)
  NORVO_PROPERTY(BSTR, ASX_Artist)
  NORVO_PROPERTY(BSTR, ASX_Album)
  NORVO_PROPERTY(BSTR, Copyright)
  NORVO_PROPERTY(BSTR, HREF)
  NORVO_PROPERTY(BSTR, ASX_SongName)
  NORVO_PROPERTY(BSTR, ASX_Title)
  NORVO_PROPERTY(VARIANT, BitRate)
  NORVO_PROPERTY(VARIANT, DigitallySecure)
  NORVO_PROPERTY(VARIANT, MediaAttribute)
  NORVO_PROPERTY(VARIANT, MediaType)
  NORVO_PROPERTY(VARIANT, PlaylistAttribute)
  NORVO_PROPERTY(VARIANT, PlayCount)
  NORVO_PROPERTY(BSTR, Abstract)
};

class M3UEntryBinding : public FormatEntryBinding<_M3UEntry> {
 public:
  using FormatEntryBinding::FormatEntryBinding;
};

class PlsEntryBinding : public FormatEntryBinding<_PlsEntry> {
 public:
  using FormatEntryBinding::FormatEntryBinding;
};

class ArtistListBinding : public Dispatcher<_ArtistList> {
 public:
  using Dispatcher::Dispatcher;
  STDMETHODIMP Add(VARIANT* key, VARIANT* value) override { return Run(u"Add", key, value); }
  STDMETHODIMP Remove(VARIANT* key) override { return Run(u"Remove", key); }
  NORVO_METHOD_2(VARIANT_BOOL, SearchByID, VARIANT, VARIANT*)
  NORVO_METHOD_2(VARIANT_BOOL, SearchByValue, VARIANT*, _ArtistItem**)
  NORVO_METHOD(VARIANT, GetFirst)
  NORVO_METHOD(VARIANT, GetNext)
  NORVO_METHOD(VARIANT, GetPrevious)
  NORVO_METHOD(VARIANT, GetLast)
  NORVO_GET(long, Count)
  NORVO_PROPERTY(VARIANT_BOOL, AllowDuplicates)
  NORVO_PROPERTY(VARIANT_BOOL, AllowOverWrite)
};

class ArtistItemBinding : public Dispatcher<_ArtistItem> {
 public:
  using Dispatcher::Dispatcher;
  NORVO_PROPERTY(VARIANT, mValue)
  NORVO_SET(VARIANT, mValue)
  NORVO_PROPERTY(VARIANT, mKeyID)
  NORVO_SET(VARIANT, mKeyID)
  NORVO_NODE(_ArtistItem*, mNextItem)
  NORVO_NODE(_ArtistItem*, mPreviousItem)
  NORVO_GET(long, Value)
  NORVO_LET(long*, Value)
  NORVO_GET(BSTR, KeyID)
  NORVO_LET(BSTR*, KeyID)
  NORVO_NODE(_ArtistItem**, NextItem)
  NORVO_NODE(_ArtistItem**, PreviousItem)
};

}  // namespace norvo::com

#undef NORVO_GET
#undef NORVO_LET
#undef NORVO_SET
#undef NORVO_PROPERTY
#undef NORVO_NODE
#undef NORVO_METHOD
#undef NORVO_METHOD_1
#undef NORVO_METHOD_2
#undef NORVO_METHOD_3
