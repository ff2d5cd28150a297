#include "package/TemplateCatalogue.h"

#include <array>

namespace quillon {

namespace {

using enum ComponentRole::Case;
using enum ArticleTemplate::Category;

constexpr auto newsBrief = std::to_array<TemplatePiece>({
    {intro, "A sharp summary of the latest development."},
    {byline, "By Robin Vale"},
    {body, "Lead with the most important update, then add verified context and relevant background."},
    {heading, "What happened"},
    {body, "Add the core facts, quotes, and details readers need to understand the story."},
});

constexpr auto newsAnalysis = std::to_array<TemplatePiece>({
    {intro, "Explain the signal beneath the headline."},
    {heading, "Why it matters"},
    {body, "Frame the stakes, the affected audience, and the broader trend."},
    {heading, "What to watch"},
    {body, "List the next decisions, dates, or signals that could shift the story."},
});

constexpr auto liveUpdate = std::to_array<TemplatePiece>({
    {intro, "Follow the latest updates as the story develops."},
    {heading, "Latest"},
    {body, "**10:00** - Add the newest confirmed update here."},
    {divider},
    {body, "**Earlier** - Add previous updates in reverse chronological order."},
});

constexpr auto featureProfile = std::to_array<TemplatePiece>({
    {intro, "Open with a vivid moment that reveals the person at the center of the story."},
    {byline, "By Robin Vale"},
    {heading, "The opening scene"},
    {body, "Set the place, the tension, and the detail that pulls readers in."},
    {quote, "Add a quote that captures the subject's voice."},
});

constexpr auto visualEssay = std::to_array<TemplatePiece>({
    {intro, "Let the visuals carry the story, with short text that gives each moment shape."},
    {photo, "Add a lead image caption."},
    {heading, "Moment One"},
    {body, "Write a compact passage that gives the image context."},
    {photo, "Add another image caption."},
});

constexpr auto cultureReview = std::to_array<TemplatePiece>({
    {intro, "State the judgment clearly, then make the case with texture."},
    {byline, "By Robin Vale"},
    {heading, "The experience"},
    {body, "Describe what it feels like, what works, and what falls short."},
    {heading, "Verdict"},
    {body, "Close with the recommendation and the audience it suits best."},
});

constexpr auto standardArticle = std::to_array<TemplatePiece>({
    {intro, "Start with the strongest version of the idea."},
    {byline, "By Robin Vale"},
    {body, "Build the article section by section, using headings to keep the structure clear."},
    {heading, "Section Heading"},
    {body, "Add supporting detail, examples, and context."},
});

constexpr auto interview = std::to_array<TemplatePiece>({
    {intro, "Introduce the person, the setting, and the reason for the conversation."},
    {heading, "Question"},
    {body, "Add the answer here."},
    {heading, "Question"},
    {body, "Add the next answer here."},
});

constexpr auto howTo = std::to_array<TemplatePiece>({
    {intro, "Tell readers what they will be able to do by the end."},
    {heading, "Before you begin"},
    {body, "List prerequisites, materials, or assumptions."},
    {heading, "Steps"},
    {body, "1. Add the first step.\n2. Add the second step.\n3. Add the final step."},
});

constexpr auto rows = std::to_array<TemplateRow>({
    {"news-brief", news, "News Brief", "A concise report with summary, facts, and context.", "newspaper",
     "#0A84FF", newsBrief},
    {"news-analysis", news, "News Analysis", "A structured take on what changed and why it matters.",
     "chart.line.uptrend.xyaxis", "#30B0C7", newsAnalysis},
    {"live-update", news, "Live Update", "A time-stamped structure for developing stories.",
     "dot.radiowaves.left.and.right", "#FF3B30", liveUpdate},
    {"feature-profile", magazines, "Feature Profile", "A character-led magazine story with scene and voice.",
     "person.crop.rectangle.stack", "#BF5AF2", featureProfile},
    {"visual-essay", magazines, "Visual Essay", "A paced structure for image-led storytelling.",
     "photo.on.rectangle.angled", "#64D2FF", visualEssay},
    {"culture-review", magazines, "Culture Review", "A review format for books, film, music, food, or art.",
     "star.bubble", "#FFD60A", cultureReview},
    {"standard-article", article, "Standard Article", "A clean starting point for a general story.",
     "doc.text", "#34C759", standardArticle},
    {"interview", article, "Interview", "A question-and-answer article format.", "quote.bubble", "#FF9F0A",
     interview},
    {"how-to", article, "How-To Guide", "A practical article with steps and takeaways.", "checklist",
     "#32D74B", howTo},
});

} // namespace

std::span<const TemplateRow> templateRows() {
    return rows;
}

} // namespace quillon
