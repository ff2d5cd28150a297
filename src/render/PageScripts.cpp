#include "render/PageScripts.h"

#include "base/endpoints.h"

#include <array>
#include <vector>

namespace quillon::HTMLRenderer {

namespace {

/// The script that brings the posts of a service to life: `before`, its host, `after`.
struct EmbedScript {
    ComponentRole::Case role;
    std::string_view before;
    std::string_view host;
    std::string_view after;
};

constexpr std::array<EmbedScript, 4> embedScriptTable = {{
    {ComponentRole::facebookPost,
     R"(<div id="fb-root"></div><script async defer crossorigin="anonymous" src="https://)",
     endpoints::facebookSdkHost, R"(/en_US/sdk.js#xfbml=1&version=v20.0"></script>)"},
    {ComponentRole::instagram, R"(<script async src="https://)", endpoints::instagramEmbedHost,
     R"(/embed.js"></script>)"},
    {ComponentRole::tiktok, R"(<script async src="https://)", endpoints::tiktokEmbedHost,
     R"(/embed.js"></script>)"},
    {ComponentRole::tweet, R"(<script async src="https://)", endpoints::twitterWidgetHost,
     R"(/widgets.js" charset="utf-8"></script>)"},
}};

/// Asks the services' scripts to look at the page once more when it has loaded.
constexpr std::string_view loaderScript = R"js(<script>
window.addEventListener('load', function () {
  if (window.FB && window.FB.XFBML) { window.FB.XFBML.parse(); }
  if (window.instgrm && window.instgrm.Embeds) { window.instgrm.Embeds.process(); }
  if (window.twttr && window.twttr.widgets) { window.twttr.widgets.load(); }
});
</script>)js";

constexpr std::string_view placeholderScript = R"js(<script>
(function () {
  function placeholder(img) {
    var div = document.createElement('div');
    div.className = 'image-placeholder';
    div.textContent = img.getAttribute('alt') || 'Image not found';
    if (img.parentNode) { img.parentNode.replaceChild(div, img); }
  }
  function bind() {
    var images = document.querySelectorAll('img');
    for (var i = 0; i < images.length; i++) {
      var img = images[i];
      if (img.complete && img.naturalWidth === 0) {
        placeholder(img);
      } else {
        img.addEventListener('error', function (event) { placeholder(event.target); });
      }
    }
  }
  if (document.readyState === 'loading') {
    document.addEventListener('DOMContentLoaded', bind);
  } else {
    bind();
  }
})();
</script>)js";

/// Whether each role occurs anywhere in a tree. Without recursion: a tree may be as deep as memory allows.
std::array<bool, ComponentRole::other + 1> rolesIn(const List<Component>& components) {
    std::array<bool, ComponentRole::other + 1> occurs{};
    std::vector<const List<Component>*> lists{&components};
    while (!lists.empty()) {
        const List<Component>& list = *lists.back();
        lists.pop_back();
        for (const Component& component : list) {
            occurs[component.role.kind()] = true;
            if (component.components) {
                lists.push_back(&*component.components);
            }
        }
    }
    return occurs;
}

} // namespace

std::string embedScripts(const List<Component>& components) {
    const auto occurs = rolesIn(components);
    std::string scripts;
    for (const EmbedScript& script : embedScriptTable) {
        if (occurs[script.role]) {
            scripts.append(script.before).append(script.host).append(script.after).append("\n");
        }
    }
    if (!scripts.empty()) {
        scripts += loaderScript;
    }
    return scripts;
}

std::string_view imagePlaceholderScript() {
    return placeholderScript;
}

} // namespace quillon::HTMLRenderer
