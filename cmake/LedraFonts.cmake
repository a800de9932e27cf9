# The shipped faces come out of npm packages that package-lock.json pins; scripts/setup fetches them. Here they get
# the file names from which the font catalogue reads family, weight and slope, and go into the resources.
set(LEDRA_FONT_DIR ${CMAKE_BINARY_DIR}/fonts)
set(serif_source ${PROJECT_SOURCE_DIR}/node_modules/source-serif/WOFF2/TTF)
set(duo_source ${PROJECT_SOURCE_DIR}/node_modules/@fontsource/ia-writer-duo/files)

# The TrueType outlines are taken, since the engine embeds those as subsets of a real font; it turns the PostScript
# outlines of the same faces into Type 3 drawings.
set(LEDRA_FONT_FILES)
function(ledra_font source name)
  if(NOT EXISTS ${source})
    message(FATAL_ERROR "The font ${source} is missing: run scripts/setup first.")
  endif()
  configure_file(${source} ${LEDRA_FONT_DIR}/${name} COPYONLY)
  set(LEDRA_FONT_FILES ${LEDRA_FONT_FILES} ${LEDRA_FONT_DIR}/${name} PARENT_SCOPE)
endfunction()

foreach(style Light LightIt Regular It Semibold SemiboldIt Bold BoldIt Black BlackIt)
  ledra_font(${serif_source}/SourceSerif4-${style}.ttf.woff2 SourceSerif4-${style}.woff2)
endforeach()
ledra_font(${duo_source}/ia-writer-duo-latin-400-normal.woff2 iAWriterDuo-Regular.woff2)
ledra_font(${duo_source}/ia-writer-duo-latin-400-italic.woff2 iAWriterDuo-Italic.woff2)
ledra_font(${duo_source}/ia-writer-duo-latin-700-normal.woff2 iAWriterDuo-Bold.woff2)
ledra_font(${duo_source}/ia-writer-duo-latin-700-italic.woff2 iAWriterDuo-BoldItalic.woff2)
