# The licences of what the programs for Windows carry, as the packages of Debian state them that it
# was built from; docs/THIRD-PARTY-NOTICES.md tells what is whose.

# norvo_license(NAME FILE)
function(norvo_license name file)
  install(FILES "${file}" RENAME ${name}.txt
    DESTINATION licenses COMPONENT windows EXCLUDE_FROM_ALL)
endfunction()
norvo_license(CLI11 /usr/share/doc/libcli11-dev/copyright)
norvo_license(nlohmann-json /usr/share/doc/nlohmann-json3-dev/copyright)
norvo_license(TagLib /usr/share/doc/libtag1-dev/copyright)
norvo_license(MPL-1.1 /usr/share/common-licenses/MPL-1.1)
norvo_license(UTF8-CPP /usr/share/doc/libutfcpp-dev/copyright)
norvo_license(pugixml /usr/share/doc/libpugixml-dev/copyright)
norvo_license(utf8proc /usr/share/doc/libutf8proc-dev/copyright)
norvo_license(mingw-w64 /usr/share/doc/mingw-w64-common/copyright)
