#include "Platform/Linux/InterfaceFonts.h"

#include "Support/Handle.h"

#include <fontconfig/fontconfig.h>

#include <string>

namespace kerlune {

namespace {

// Faces for menus and labels, and for the scripts that names of families are written in. What is not installed is
// passed over. The families stand in the order of preference.
constexpr const char *kConfiguration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <selectfont>
    <acceptfont>
      <pattern><patelt name="family"><string>Cantarell</string></patelt></pattern>
      <pattern><patelt name="family"><string>Adwaita Sans</string></patelt></pattern>
      <pattern><patelt name="family"><string>Ubuntu</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans</string></patelt></pattern>
      <pattern><patelt name="family"><string>Inter</string></patelt></pattern>
      <pattern><patelt name="family"><string>Open Sans</string></patelt></pattern>
      <pattern><patelt name="family"><string>Roboto</string></patelt></pattern>
      <pattern><patelt name="family"><string>Liberation Sans</string></patelt></pattern>
      <pattern><patelt name="family"><string>DejaVu Sans</string></patelt></pattern>
      <pattern><patelt name="family"><string>DejaVu Sans Mono</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans Arabic</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans Hebrew</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans Devanagari</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans Thai</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans CJK JP</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans CJK SC</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Sans CJK KR</string></patelt></pattern>
      <pattern><patelt name="family"><string>Noto Color Emoji</string></patelt></pattern>
      <pattern><patelt name="family"><string>Lohit Devanagari</string></patelt></pattern>
      <pattern><patelt name="family"><string>WenQuanYi Zen Hei</string></patelt></pattern>
      <pattern><patelt name="family"><string>Droid Sans Fallback</string></patelt></pattern>
    </acceptfont>
    <rejectfont><pattern/></rejectfont>
  </selectfont>
  <match target="pattern">
    <test qual="all" name="family" compare="not_eq"><string>sans-serif</string></test>
    <test qual="all" name="family" compare="not_eq"><string>monospace</string></test>
    <edit name="family" mode="append_last"><string>sans-serif</string></edit>
  </match>
  <alias binding="same">
    <family>sans-serif</family>
    <prefer>
      <family>Liberation Sans</family>
      <family>Noto Sans</family>
      <family>DejaVu Sans</family>
      <family>WenQuanYi Zen Hei</family>
      <family>Lohit Devanagari</family>
      <family>Noto Color Emoji</family>
    </prefer>
  </alias>
  <alias binding="same">
    <family>monospace</family>
    <prefer><family>DejaVu Sans Mono</family></prefer>
  </alias>
</fontconfig>
)";

} // namespace

bool limitInterfaceFonts()
{
    const Handle<FcConfig, FcConfigDestroy> config(FcConfigCreate());
    if (config == nullptr)
        return false;
    const auto *text = reinterpret_cast<const FcChar8 *>(kConfiguration);
    if (FcConfigParseAndLoadFromMemory(config.get(), text, FcTrue) == FcFalse ||
        FcConfigBuildFonts(config.get()) == FcFalse)
        return false;
    const FcFontSet *fonts = FcConfigGetFonts(config.get(), FcSetSystem);
    if (fonts == nullptr || fonts->nfont == 0)
        return false;                           // a system whose fonts lie elsewhere
    FcConfigSetRescanInterval(config.get(), 0); // else fontconfig would replace it by its own when a folder changes
    return FcConfigSetCurrent(config.get()) == FcTrue; // which keeps it
}

} // namespace kerlune
