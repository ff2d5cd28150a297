#include "render/StyleSheet.h"

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view pageRules = R"css(* { box-sizing: border-box; }
html, body { margin: 0; padding: 0; }
body {
  background: )css";

constexpr std::string_view articleRules = R"css(;
  font-family: -apple-system, "SF Pro Text", "Helvetica Neue", sans-serif;
  color: #1d1d1f;
  -webkit-font-smoothing: antialiased;
}
.anf { max-width: 700px; margin: 0 auto; padding: 48px 28px 96px; }
.component { min-width: 0; }
)css";

/// The colours of a dark page, wherever an element has one of its own.
constexpr std::string_view darkColorRules = R"css(body { color: #f5f5f7; }
.role-intro { color: #c7c7cc; }
.role-caption, .role-author, .role-byline,
.role-photographer, .role-illustrator { color: #98989d; }
.image-placeholder { background: #1c1c1e; border-color: #3a3a3c; color: #8e8e93; }
.embed-placeholder { background: #1c1c1e; border-color: #3a3a3c; }
.embed-title { color: #c7c7cc; }
.embed-fallback-link { color: #66aaff; }
.article-link { color: #f5f5f7; border-color: #3a3a3c; }
figure.media figcaption { color: #98989d; }
.unknown-role { background: #2a2410; border-color: #ffd60a; }
)css";

constexpr std::string_view fixedRules = R"css(.component.anf-focus-flash {
  outline: 2px solid rgba(0, 113, 227, 0);
  outline-offset: 4px;
  border-radius: 8px;
  animation: anf-focus-flash 1.8s ease-out both;
}
.layered-container { position: relative; isolation: isolate; }
.layered-container > .component[class*="anchor-parent-"] {
  position: absolute;
  left: 0;
  right: 0;
  z-index: 2;
}
.layered-container > .component.anchor-parent-top { top: 0; }
.layered-container > .component.anchor-parent-center { top: 50%; transform: translateY(-50%); }
.layered-container > .component.anchor-parent-bottom { bottom: 0; }
.component.anchor-target-top { align-self: start; }
.component.anchor-target-center { align-self: center; }
.component.anchor-target-bottom { align-self: end; }
.data-table { font-size: 16px; line-height: 1.4; margin: 12px 0; }
.data-table th { text-align: left; font-weight: 600; }
.data-table th, .data-table td { vertical-align: top; }
.html-table { overflow-x: auto; margin: 12px 0; }
.html-table table { border-collapse: collapse; width: 100%; }
.html-table th, .html-table td { padding: 8px; border-bottom: 1px solid #d2d2d7; text-align: left; }
.anf p { margin: 0 0 1em; }
.role-title {
  font-size: 40px;
  line-height: 1.08;
  font-weight: 700;
  letter-spacing: -0.02em;
  margin-bottom: 12px;
}
.role-intro { font-size: 21px; line-height: 1.45; color: #3a3a3c; margin-bottom: 18px; }
.role-heading { font-size: 24px; line-height: 1.2; font-weight: 700; margin: 24px 0 8px; }
.role-heading1 { font-size: 30px; line-height: 1.15; font-weight: 700; margin: 28px 0 8px; }
.role-heading2 { font-size: 24px; line-height: 1.2; font-weight: 700; margin: 24px 0 8px; }
.role-heading3 { font-size: 20px; line-height: 1.25; font-weight: 600; margin: 20px 0 6px; }
.role-heading4 { font-size: 18px; line-height: 1.3; font-weight: 600; margin: 18px 0 6px; }
.role-heading5 { font-size: 16px; line-height: 1.3; font-weight: 600; margin: 16px 0 6px; }
.role-heading6 { font-size: 15px; line-height: 1.3; font-weight: 600; margin: 14px 0 4px; }
.role-body { font-size: 18px; line-height: 1.6; }
.role-caption { font-size: 14px; line-height: 1.4; color: #6e6e73; }
.role-author, .role-byline, .role-photographer, .role-illustrator {
  font-size: 13px;
  text-transform: uppercase;
  letter-spacing: 0.06em;
  color: #6e6e73;
  margin: 4px 0;
}
.role-quote {
  font-size: 22px;
  line-height: 1.4;
  font-style: italic;
  border-left: 3px solid #d2d2d7;
  padding-left: 16px;
  margin: 24px 0;
}
.role-pullquote {
  font-size: 28px;
  line-height: 1.3;
  font-weight: 600;
  text-align: center;
  margin: 32px 0;
  color: #1d1d1f;
}
figure.image { margin: 20px 0; }
figure.image img { width: 100%; height: auto; display: block; border-radius: 4px; }
figure.image figcaption { font-size: 13px; color: #6e6e73; margin-top: 6px; }
.image-placeholder {
  width: 100%;
  padding: 48px 16px;
  text-align: center;
  background: #f2f2f7;
  border: 1px dashed #c7c7cc;
  border-radius: 6px;
  color: #8e8e93;
  font-size: 13px;
  word-break: break-all;
}
hr.divider { border: none; border-top: 1px solid #d2d2d7; margin: 28px 0; }
.container { margin: 0; }
.section { margin: 0; padding: 0; }
.header { position: relative; margin: 0 0 20px; overflow: hidden; }
.header-hero {
  width: 100%;
  min-height: 320px;
  background-size: cover;
  background-repeat: no-repeat;
  border-radius: 4px;
}
.header-content { position: absolute; inset: 0; padding: 0; }
.scene-fading-sticky-header > .component:first-child { position: sticky; top: 0; z-index: 1; }
.scene-fading-sticky-header > .component:first-child::after {
  content: "";
  position: absolute;
  inset: 0;
  pointer-events: none;
  background: var(--anf-scene-fade-color, transparent);
  opacity: 0;
  animation: anf-scene-fade 1.6s ease-out both;
}
.scene-parallax-scale .header-hero {
  transform: scale(1.04);
  transform-origin: center top;
  background-attachment: fixed;
}
.gallery {
  display: flex;
  gap: 12px;
  overflow-x: auto;
  margin: 20px 0;
  padding-bottom: 8px;
  scroll-snap-type: x mandatory;
}
.gallery figure { flex: 0 0 78%; margin: 0; scroll-snap-align: start; }
.gallery img { width: 100%; height: auto; border-radius: 4px; display: block; }
.gallery figcaption, .mosaic figcaption { font-size: 13px; color: #6e6e73; margin-top: 6px; }
.mosaic { display: grid; grid-template-columns: repeat(2, 1fr); gap: 8px; margin: 20px 0; }
.mosaic figure { margin: 0; }
.mosaic img { width: 100%; height: 100%; object-fit: cover; border-radius: 4px; display: block; }
.embed-placeholder {
  border: 1px dashed #c7c7cc;
  border-radius: 8px;
  padding: 20px;
  margin: 20px 0;
  text-align: center;
  background: #f2f2f7;
}
.embed-title { font-weight: 600; color: #3a3a3c; }
.embed-detail { font-size: 13px; color: #8e8e93; margin-top: 4px; word-break: break-all; }
figure.media { margin: 20px 0; }
.media-video { width: 100%; height: auto; display: block; border-radius: 4px; background: #000; }
.media-audio { width: 100%; display: block; }
figure.media figcaption,
.live-embed figcaption { font-size: 13px; color: #6e6e73; margin-top: 6px; }
.web-video {
  position: relative;
  width: 100%;
  height: 0;
  margin: 20px 0;
  border-radius: 4px;
  overflow: hidden;
  background: #000;
}
.web-video iframe { position: absolute; top: 0; left: 0; width: 100%; height: 100%; border: 0; }
.live-embed { margin: 20px 0; }
.live-embed iframe { display: block; width: 100%; border: 0; border-radius: 6px; background: #f2f2f7; }
.apple-media-embed { margin: 20px 0; }
.apple-music-embed { min-height: 175px; }
.apple-podcast-embed { min-height: 450px; }
.apple-map { min-height: 320px; border: 1px solid #d2d2d7; }
.social-embed { max-width: 560px; margin-left: auto; margin-right: auto; }
.twitter-tweet,
.instagram-media,
.tiktok-embed,
.fb-post { margin-left: auto !important; margin-right: auto !important; }
.embed-fallback-link {
  display: inline-block;
  margin-top: 10px;
  font-size: 13px;
  color: #0066cc;
  text-decoration: none;
}
.anf-button {
  display: inline-block;
  padding: 12px 24px;
  background: #0071e3;
  color: #fff;
  border-radius: 980px;
  font-weight: 600;
  text-decoration: none;
  text-align: center;
}
.article-link {
  display: block;
  padding: 12px 16px;
  border: 1px solid #d2d2d7;
  border-radius: 8px;
  color: #1d1d1f;
  text-decoration: none;
}
.article-link .component { margin: 0; }
.article-link .role-article_title { font-weight: 600; }
.flexible-spacer-component { flex: 1 1 auto; min-width: 24px; align-self: stretch; }
.flexible-spacer { width: 100%; min-height: 1px; }
@keyframes anf-fade-in {
  from { opacity: var(--anf-initial-alpha, 0); }
  to { opacity: 1; }
}
@keyframes anf-move-in {
  from { opacity: 0; transform: translate(var(--anf-move-x, -32px), var(--anf-move-y, 0)); }
  to { opacity: 1; transform: none; }
}
@keyframes anf-scale-fade {
  from { opacity: var(--anf-initial-alpha, 0); transform: scale(var(--anf-initial-scale, 0.92)); }
  to { opacity: 1; transform: none; }
}
@keyframes anf-scene-fade {
  0%, 65% { opacity: 0; }
  100% { opacity: 0.22; }
}
@keyframes anf-focus-flash {
  0% { outline-color: rgba(0, 113, 227, 0); box-shadow: 0 0 0 2px rgba(0, 113, 227, 0); }
  18% { outline-color: rgba(0, 113, 227, 0.6); box-shadow: 0 0 0 6px rgba(0, 113, 227, 0.1); }
  55% { outline-color: rgba(0, 113, 227, 0.6); box-shadow: 0 0 0 10px rgba(0, 113, 227, 0.06); }
  100% { outline-color: rgba(0, 113, 227, 0); box-shadow: 0 0 0 16px rgba(0, 113, 227, 0); }
}
.anim-fade-in { animation: anf-fade-in 0.6s ease-out both; }
.anim-appear { animation: anf-fade-in 0.4s ease-out both; }
.anim-move-in { animation: anf-move-in 0.6s ease-out both; }
.anim-scale-fade { animation: anf-scale-fade 0.6s ease-out both; }
.unknown-role {
  border-left: 3px solid #ffcc00;
  background: #fff8e1;
  padding: 8px 12px;
  margin: 12px 0;
  border-radius: 0 4px 4px 0;
}
.unknown-role-label {
  font-size: 11px;
  text-transform: uppercase;
  letter-spacing: 0.06em;
  color: #8a6d00;
  margin-bottom: 4px;
}
)css";

std::string_view colorSchemes(bool automaticDark, PreviewAppearance appearance) {
    switch (appearance) {
    case PreviewAppearance::light:
        return "light";
    case PreviewAppearance::dark:
        return "dark";
    case PreviewAppearance::automatic:
        break;
    }
    return automaticDark ? "light dark" : "light";
}

} // namespace

std::string baseStyleSheet(std::string_view background, bool automaticDark, PreviewAppearance appearance) {
    std::string sheet;
    sheet.reserve(fixedRules.size() + 2 * darkColorRules.size() + 1024);
    sheet.append(":root { color-scheme: ").append(colorSchemes(automaticDark, appearance)).append("; }\n");
    sheet.append(pageRules).append(background).append(articleRules);
    // A chosen dark appearance lets the fixed rules win; the reader's own dark mode wins over them.
    if (automaticDark && appearance == PreviewAppearance::dark) {
        sheet += darkColorRules;
    }
    sheet += fixedRules;
    if (automaticDark && appearance == PreviewAppearance::automatic) {
        sheet.append("@media (prefers-color-scheme: dark) {\n").append(darkColorRules).append("}\n");
    }
    return sheet;
}

} // namespace quillon::HTMLRenderer
