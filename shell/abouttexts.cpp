// SPDX-License-Identifier: MIT
#include "shell/abouttexts.h"

#include <QStringList>

namespace vnb {
namespace {

// Paragraphs stand apart by an empty line; other line ends are only for whoever reads this file.

constexpr char program[] = R"(
Vantry reads its networks from plain text documents. One can write such a document by hand, and for
years people did, but it is clumsy work. A page of numbers gives no overview: to see the network one
has to play through the game, and a single slip, such as a link to a device that isn't there, makes
the game crash, as a rule late in the evening. This program draws the network instead, and leaves
the counting to the computer.

Thanks to everyone who helped: to those who sent in their half-finished networks and their whole
opinions, to the Knots for breaking every version before anyone else could, and to all who were
asked "do you have a minute?" and had an hour.

Questions, ideas and bug reports are welcome by e-mail: team@vantry-network-builder.example. If the
program did something odd, please send the LAN file along and tell what you did just before. The
contact section of the README says if the address has changed.
)";

constexpr char testers[] = R"(
The Knot Society is the small circle of people who try each version before it leaves the house.
They draw networks that nobody should draw, link every device to itself, try to pull out the router
from under whatever stands on the screen, and write down what happens next. Members are admitted for
the first crash that they can show twice, and their meetings end when there is no cake left.
)";

constexpr const char *members[] = {"Ottilie Brandvoll", "Marek Suchý",   "Ines Averdijk",
                                   "Tobias Lockridge",  "Ruta Vasilenė", "Joan Pettibeck"};

constexpr char flying[] = R"(
Most people suppose that flying begins with a jump. Anyone who does it regularly will tell you that
it begins with a goodbye. The ground has carried you since before you could stand, and has never
asked for more than the soles of your shoes; to hop off it without a word is plain rude, and it lets
you know at once.

So the knack is one of manners. You take leave of the ground as a good guest leaves a dinner: you
thank the host, you mean it, and you don't linger in the doorway with one arm in your coat. Those
who rise are the guests whom nobody saw going. The others are still on the mat at midnight,
discussing the weather.

Choose a quiet hour and a lawn. A roof is no help, whatever the impatient say: nobody ever needed a
roof in order to be polite, and it makes for a hurried sort of lesson. Wind is no help either. It is
the kind of teacher who finishes your sentences.

Empty your pockets, though not for the weight. It is the keys that matter: keys belong to doors, and
doors belong to the floor, and as long as you jingle the ground will think that you are only going
out for milk. Wear something with buttons. Zips come undone above the second storey, for reasons that
no tailor has been able to explain to me.

Stand as one stands at a bus stop when the bus is already in sight. Not on the heels, which is
waiting, and not on the toes, which is hoping; share yourself out until no part of either foot could
be held responsible. My aunt Wilhelmina practised at real bus stops. The drivers of the number nine
got used to slowing down and looking up.

Now breathe out. Beginners breathe in, as if a person were a balloon, but a chest full of air is only
one more piece of luggage. Breathe out the week, the gas bill, and the letter to your brother-in-law
that has been due since March. You have finished when you can hear your own collar.

Then say your thanks. Silently will do, but be particular about it. The ground is praised in general
by every anthem there is, and has long stopped listening; thank it for the warm step outside the
bakery, or for that one loose slab which always squelched and never once tripped you.

And go. I can describe it only like this: you know how, on the stairs in the dark, one sometimes
climbs a last step that isn't there. You lift your foot for it in just that way, with the same
trust and no more effort. This time it is there.

The first height is the width of a hand, and you should stay there for some days. Newcomers make for
the treetops at once, and so meet the birds before they have anything to tell them. At a hand's width
there is plenty to notice. Your feet fall silent, for one thing: they have been talking all your
life, and you took it for the sound of the street.

You will wobble. This is not failure, it is the air shaking hands with you, and the air has a great
many hands. Don't row with your arms, which only looks like somebody losing an argument. Carry your
elbows as though there were a loaf under each, and turn by taking an interest in something to the
left.

Learn to come down before you learn anything else. Books on the subject leave it to the last chapter,
as if it were the sad part, and their readers spend uncomfortable evenings on wardrobes. Come down as
one comes home, slowly enough to be glad of it, and with a word to whoever is in. Bend the knees. Of
the whole human frame they are the only piece designed by someone who had thought ahead.

The ground bears no grudges, but it does keep books. People who return boasting find it a good deal
harder than people who return hungry. I have tried both several times, and I recommend hungry.

After a week or so you may go as high as the hedge, which is a sociable height: you get the other
half of the neighbours' conversation at last, and it is the better half. After a month try chimneys.
They are warm, the view is excellent, and the pigeons know it and have taken the front row. Bring a
crust. It settles most questions of property.

Clouds disappoint at first. From below each is a palace, and from within it is a wet Tuesday. But be
patient and come out at the top around sunset, when the whole white country turns the colour of
apricot jam and there is not a fence in it from one end to the other. It was there that I first
understood swifts, who can hardly be bothered to come down at all.

If you know somebody of your own pace, fly in company. Conversation is a little different up there,
for words drift. Jokes arrive late and compliments arrive early, which does good to both.

I am always asked whether it is cold, whether it is tiring, and whether everyone can do it. Cold,
yes; take a scarf, and tuck it in. Tiring, less so than explaining it. As to the last, everyone can,
but not every day: there are mornings when I am as light as a piano in a stairwell, and not one of my
thanks is sincere. On such mornings I walk, and try to think of it as flying with very frequent
visits.

Children pick it up in an afternoon, for they have few goodbyes behind them and still do each one
properly. The old are quicker yet. Aunt Wilhelmina, at eighty-eight, rose out of a garden chair so
gently that the cat in her lap slept on until they had reached the pear tree. The cat has never
mentioned it since, but it now comes when she calls, which it had not done before.

Dogs will see you off with tears and welcome you back as from the sea, even if you have only been to
the gutter; cats let it be understood that they taught you. Never join a line of geese in the middle:
there is a list, and you are not on it. A kite on its string is to be greeted kindly, but do not offer
to set it free. It is no prisoner; somebody is holding its hand.

Do not ask what it is all for. It is no quicker way to work, it is ruinous to hats, and nobody has
yet got a bag of potatoes home by it. What you do get is this: from above, a place joins up. The
paths turn out to lead somewhere, every wire runs from one kitchen to another, and the whole muddle
that you live in lies there like a drawing which someone has made with great care. You can't be quite
lost again in a town that you have seen in one piece.

So go out early one morning, with empty pockets and a few good thanks prepared. If nothing comes of
it, you will have stood in wet grass at sunrise feeling grateful, and there are few experiments that
fail so pleasantly. If something does, keep an eye on the washing lines, wave to the number nine, and
be home for breakfast. Leave the kitchen light on, so that you know which of all those roofs is yours.
)";

const QString lineEnd = QStringLiteral("\r\n");

/// The paragraphs of `prose`, each as one line.
QString paragraphs(const char *prose) {
  QStringList lines = QString::fromUtf8(prose).split(QStringLiteral("\n\n"));
  for (QString &line : lines)
    line = line.simplified();
  return lines.join(lineEnd + lineEnd);
}

/// A heading, and under it a line of so many macrons.
QString heading(const char *text, qsizetype macrons) {
  return QString::fromUtf8(text) + lineEnd + QString(macrons, QChar(0xAF)) + lineEnd;
}

QString memberNames() {
  QStringList names;
  for (const char *name : members)
    names << QString::fromUtf8(name);
  return names.join(lineEnd);
}

} // namespace

QString aboutText(int page) {
  switch (page) {
  case 0:
    return heading("About Vantry Network Builder ", 21) + paragraphs(program);
  case 1:
    return heading("The Knot Society", 14) + paragraphs(testers) + lineEnd + lineEnd +
           memberNames();
  case 2:
    return paragraphs(flying);
  default:
    return {};
  }
}

} // namespace vnb
