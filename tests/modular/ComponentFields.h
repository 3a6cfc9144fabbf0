#pragma once

#include "ModularPages.h"
#include "base/Color.h"
#include "modular/content/ActionButtonComponent.h"
#include "modular/content/BoxedInformationListComponent.h"
#include "modular/content/ImageComponent.h"
#include "modular/content/InformationComponent.h"
#include "modular/content/NoticeComponent.h"
#include "modular/content/PageEntryComponent.h"
#include "modular/content/TooltipInformationComponent.h"
#include "modular/content/WebComponent.h"
#include "modular/dialog/RewardMessageDialogComponent.h"
#include "modular/dialog/ToastDialogComponent.h"
#include "modular/roulette/RouletteComponent.h"
#include "modular/scratch/ScratchLotteryComponent.h"

namespace orrelo::test {

// What a block or a dialog holds, and what it should hold of what was sent: each by the service's keys, and
// alike where a value is read into something else.

inline Json placeOf(const Page& page) {
  JsonWriter json;
  page.encode(json);
  return json.result();
}
inline Json colorOf(const Json& text) {
  return Color::fromHex(std::string(text)).hexText();
}

inline Json heldBy(const RouletteComponent& wheel) {
  struct Progress {
    Json operator()(const RouletteComponent::Running& running) const {
      return {"running", running.endIndex, running.spinDidEndActionUrl};
    }
    Json operator()(const RouletteComponent::End& end) const { return {"done", end.index}; }
    Json operator()(const RouletteComponent::Idle&) const { return {"idle"}; }
  };
  auto items = Json::array();
  for (const auto& item : wheel.items) items.push_back({item.rewardType, item.rewardText});
  return {{"progress", std::visit(Progress(), wheel.state)},
          {"items", items},
          {"primary_color", wheel.primaryColor},
          {"secondary_color", wheel.secondaryColor}};
}

inline Json heldBy(const UIComponent& component) {
  if (const auto* const it = dynamic_cast<const RouletteComponent*>(&component)) return heldBy(*it);
  if (const auto* const it = dynamic_cast<const ActionButtonComponent*>(&component)) {
    return {{"button_text", it->text},
            {"status_message", it->statusMessage},
            {"button_enable", it->isEnabled},
            {"button_url", it->actionUrl},
            {"button_color", it->color}};
  }
  if (const auto* const it = dynamic_cast<const BoxedInformationListComponent*>(&component)) {
    auto items = Json::array();
    for (const auto& box : it->items) {
      items.push_back({box.leftText, box.imageUrl, box.rightText, box.color.hexText()});
    }
    return {{"title", it->title}, {"items", items}};
  }
  if (const auto* const it = dynamic_cast<const ImageComponent*>(&component)) {
    return {{"url", it->url}, {"style", it->style == ImageComponent::Style::fit ? "fit" : "none"}};
  }
  if (const auto* const it = dynamic_cast<const InformationComponent*>(&component)) {
    return {{"first_title", it->firstTitle},
            {"second_title", it->secondTitle},
            {"guide_message", it->guideMessage}};
  }
  if (const auto* const it = dynamic_cast<const NoticeComponent*>(&component)) return {{"items", it->items}};
  if (const auto* const it = dynamic_cast<const PageEntryComponent*>(&component)) {
    return {
        {"title", it->title}, {"label", it->label}, {"icon_url", it->iconUrl}, {"page", placeOf(it->page)}};
  }
  if (const auto* const it = dynamic_cast<const TooltipInformationComponent*>(&component)) {
    return {{"first_title", it->firstTitle},
            {"second_title", it->secondTitle},
            {"tooltip_title", it->tooltipTitle},
            {"tooltip_message", it->tooltipMessage}};
  }
  if (const auto* const it = dynamic_cast<const WebComponent*>(&component)) {
    return {{"url", it->url.text()}, {"width", it->width}, {"height", it->height}};
  }
  if (const auto* const it = dynamic_cast<const ScratchLotteryComponent*>(&component)) {
    return {{"state", it->state == ScratchLotteryComponent::State::done ? "done" : "idle"},
            {"scratchable", it->scratchable},
            {"result", it->result},
            {"mot_url", it->unscratchableUrl},
            {"done_url", it->doneUrl},
            {"primary_color", it->primaryColor.hexText()},
            {"secondary_color", it->secondaryColor.hexText()}};
  }
  return {};
}

inline Json heldBy(const DialogComponent& dialog) {
  if (const auto* const it = dynamic_cast<const RewardMessageDialogComponent*>(&dialog)) {
    return {{"title", it->title}, {"body", it->body}, {"button_text", it->buttonText}, {"color", it->color}};
  }
  if (const auto* const it = dynamic_cast<const ToastDialogComponent*>(&dialog)) {
    return {{"text", it->message}, {"color", it->color.hexText()}};
  }
  return {};
}

inline Json placeSent(const Json& entry) {
  const auto text = [&entry](const char* key) {
    const bool isText = entry.contains(key) && entry[key].is_string();
    return isText ? std::optional(entry[key].get<std::string>()) : std::nullopt;
  };
  const auto link = text("deeplink");
  if (const auto url = link && !link->empty() ? Url::parse(*link) : std::nullopt) {
    return placeOf(Page::DeepLink{*url});
  }
  if (const auto id = text("campaign_id")) return placeOf(Page::Campaign{*id});
  if (const auto name = text("destination")) return placeOf(Page::fromDestination(*name));
  return placeOf(Page::Fixed::unknown);
}

inline Json progressSent(const Json& progress) {
  if (progress["state"] == "running") return {"running", progress["result_index"], progress["done_url"]};
  if (progress["state"] == "done") return {"done", progress["result_index"]};
  return {"idle"};
}

/// Of a readable block of this kind.
inline Json sentAs(const std::string& kind, const Json& block) {
  auto sent = block;
  if (kind == "roulette") {
    auto items = Json::array();
    const bool hasNewer = block.contains("items_v2") && !block["items_v2"].is_null();
    for (const auto& item : block[hasNewer ? "items_v2" : "items"]) {
      items.push_back(hasNewer ? Json{item["reward_type"], item["reward_text"]} : Json{"", item});
    }
    sent["progress"] = progressSent(block["progress"]);
    sent["items"] = items;
  } else if (kind == "boxed_information_list") {
    auto items = Json::array();
    for (const auto& box : block["items"]) {
      items.push_back({box["left_text"], box["image_url"], box["right_text"], colorOf(box["color"])});
    }
    sent["items"] = items;
  } else if (kind == "page_entry_view") {
    sent["page"] = placeSent(block);
  } else if (kind == "web") {
    sent["url"] = Url::parse(std::string(block["url"]))->text();
  } else if (kind == "scratch_lottery") {
    for (const auto* const key : {"primary_color", "secondary_color"}) sent[key] = colorOf(block[key]);
  } else if (kind == "toast") {
    sent["color"] = colorOf(block["color"]);
  }
  return sent;
}

/// Each value that is held is the one that was sent.
inline void expectHeld(const Json& held, const Json& sent) {
  EXPECT_FALSE(held.empty());
  for (const auto& [key, value] : held.items()) {
    ASSERT_TRUE(sent.contains(key)) << key;
    EXPECT_EQ(value, sent[key]) << key;
  }
}

}  // namespace orrelo::test
