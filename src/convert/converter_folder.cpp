#include "convert/converter_folder.h"

#include "win/platform_error.h"

#include <windows.h>

#include <fstream>

namespace kelvane {
namespace {

// Drawings (SVG, MVG) may name other pictures, with the format in front of the name. Denied are
//
// - formats that do more than show one file: MSL is a script and writes files, EPHEMERAL deletes
//   the file, VID and MPC read further files, the next ones the network, the others the screen,
//   the clipboard and devices;
// - programs that carry out what a file says or follow its links: plotting and rendering
//   languages, documents of office programs, web pages;
// - names behind "@", which stand for the content of that file, and names of other computers.
//
// PostScript and PDF stay open: Ghostscript runs them in its safe mode. Which of two rules wins
// depends on ImageMagick's version, so there are only rules that deny. Patterns are
// case-sensitive: format names are in upper case, those of programs in either.
constexpr const char* kPolicy = R"(<?xml version="1.0" encoding="UTF-8"?>
<policymap>
  <policy domain="coder" rights="none" pattern="{MSL,EPHEMERAL,VID,MPC}"/>
  <policy domain="coder" rights="none" pattern="{URL,HTTP,HTTPS,FTP,FILE}"/>
  <policy domain="coder" rights="none" pattern="{CLIPBOARD,SCREENSHOT,X,WIN,SHOW,SCAN,SCANX,PRINT}"/>
  <policy domain="delegate" rights="none" pattern="{BROWSE,EDIT,LAUNCH,PRINT,SCAN,SCANX,SHOW,WIN}"/>
  <policy domain="delegate" rights="none" pattern="{browse,edit,launch,print,scan,scanx,show,win}"/>
  <policy domain="delegate" rights="none" pattern="{HTTP,HTTPS,FTP,HTM,HTML,SHTML,http,https,ftp,htm,html,shtml}"/>
  <policy domain="delegate" rights="none" pattern="{DOT,DVI,GPLT,MAN,PLT,POV,dot,dvi,gplt,man,plt,pov}"/>
  <policy domain="delegate" rights="none" pattern="{DOC,DOCX,ODT,PPT,PPTX,XLS,XLSX,doc,docx,odt,ppt,pptx,xls,xlsx}"/>
  <policy domain="path" rights="none" pattern="@*"/>
  <policy domain="path" rights="none" pattern="//*"/>
  <policy domain="path" rights="none" pattern="\\\\*"/>
</policymap>
)";

} // namespace

ConverterFolder::ConverterFolder() {
    std::ofstream policy(*this / L"policy.xml", std::ios::binary);
    policy << kPolicy;
    policy.close();
    if (!policy) throw PlatformError(ERROR_WRITE_FAULT);
}

} // namespace kelvane
