#include "picking/hits/VisHitRecord.h"
#include "picking/select/VisDebugEventHandler.h"
#include "picking/select/VisHoverHandler.h"
#include "services/logging/DebugLogger.h"
#include "tests/support/RecordingNode.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <memory>

namespace {

class Hover final : public FenVisHoverHandler {
    using FenVisHoverHandler::FenVisHoverHandler;
};

class Debug final : public FenVisDebugEventHandler {
public:
    using FenVisDebugEventHandler::FenVisDebugEventHandler;
    using FenVisDebugEventHandler::OnMouseOver;
    bool OnMouseOver(FenVisHitRecord const&, FenStringBuilder const&, QString&) override { return false; }
    bool OnMouseLeave(FenVisHitRecord const&, FenStringBuilder const&, QString&) override { return false; }
    bool OnMouseRelease(FenVisHitRecord const&) override { return false; }
    bool OnMouseReserved(FenVisHitRecord const&) override { return false; }
    bool OnMouseSelect(FenVisHitRecord const&) override { return false; }
};

FenVisHitRecord const itself(0, 1.0), part(1, 0.5), unknown(7, 0.5);

struct VisHandlers : testing::Test {
    VisHandlers()
    {
        node->hitProperties().insert(0, FenVisHitProperty(node.get()));
        node->hitProperties().insert(1, FenVisHitProperty(&item));
    }

    FenModifiedGroup group;
    FenProperties item{group};
    std::unique_ptr<RecordingNode> node = std::make_unique<RecordingNode>(group, "chart");
    boost::shared_ptr<Hover> handler = boost::make_shared<Hover>(*node);
    QString tooltip;
};

} // namespace

TEST_F(VisHandlers, HoverEntersOnceAndLeavesOnce)
{
    EXPECT_FALSE(handler->OnMouseLeave(itself, {}, tooltip)); // nothing is hovered yet
    EXPECT_TRUE(handler->OnMouseOver(itself, {}, tooltip) && tooltip == "chart");
    EXPECT_FALSE(handler->OnMouseOver(itself, {}, tooltip));
    EXPECT_TRUE(handler->OnMouseOver(part, {}, tooltip));
    EXPECT_FALSE(handler->OnMouseLeave(itself, {}, tooltip)); // not what is hovered
    EXPECT_TRUE(handler->OnMouseLeave(part, {}, tooltip) && tooltip.isNull());
    EXPECT_FALSE(handler->OnMouseLeave(part, {}, tooltip));
    handler->OnMouseOver(itself, {}, tooltip);
    tooltip = "of somebody else";
    EXPECT_TRUE(handler->OnMouseLeave(itself, {}, tooltip) && tooltip == "of somebody else");
}

TEST_F(VisHandlers, HoverIgnoresStaleNamesDeadOwnersAndADeadNode)
{
    FenVisHitRecordList const hits({itself}, handler, node.get(), 0);
    EXPECT_FALSE(handler->OnMouseOver(unknown, {}, tooltip));
    {
        FenProperties brief(group);
        node->hitProperties().insert(7, FenVisHitProperty(&brief));
        EXPECT_TRUE(handler->OnMouseOver(unknown, {}, tooltip));
    }
    EXPECT_FALSE(handler->hovered().defined());
    for (FenVisHitRecord const& hit : {unknown, itself}) {
        EXPECT_FALSE(handler->OnMouseOver(hit, {}, tooltip) || handler->OnMouseLeave(hit, {}, tooltip));
        node.reset();
    }
    handler.reset();
    EXPECT_TRUE(hits.handler(0).expired()); // a hit list keeps no handler alive
}

TEST_F(VisHandlers, DebugHandlerLogsOnTheOutputStreamWhileItsNodeLives)
{
    node->setType("visualization.test");
    node->layer.set(4);
    Debug debug(node.get());
    QStringList lines;
    kesdebug::logger& logger = fen::debug_logger::debuglogger();
    logger.setSink([&](std::string const& tag, std::string const& line) {
        lines.append(QString::fromStdString(tag + '|' + line));
    });
    FenVisHitRecord const hit(3, 0.25);
    EXPECT_TRUE(debug.OnMouseOver(hit, tooltip));
    debug.LogDebugInfo(hit);
    EXPECT_TRUE(debug.OnMouseClick(hit));
    EXPECT_TRUE(debug.OnMouseDrag(hit, QPoint(1, 2)));
    node.reset();
    debug.LogDebugInfo(hit);
    EXPECT_FALSE(debug.OnMouseDrag(hit, QPoint()));
    logger.setSink({});
    EXPECT_EQ("top record: chart->name(3) depth(0.250000)", tooltip);
    EXPECT_EQ(QStringList({"Out|\tvis(visualization.test: chart) \trecord(3, 0.25)\tlayer(4)",
                           "Out|\tOnMouseClick:\tvis(visualization.test: chart) \trecord(3, 0.25)",
                           "Out|\tOnMouseDrag:\tvis(visualization.test: chart) \trecord(3, 0.25)"}),
              lines);
}
