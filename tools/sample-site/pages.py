"""The pages of the sample site: what it shows of each video, and in which words."""

import html
import json
from dataclasses import dataclass


@dataclass(frozen=True)
class Video:
    title: str
    uploader: str = "Harbour Workshop"
    description: str = "A clock that follows the tide instead of the sun."
    # What the player lists, as paths below the media folder.
    sources: tuple = ("tide-clock/manifest.mpd", "tide-clock-360p.mpd")
    seconds: int = 12
    slow: bool = False
    silent: bool = False
    refusal: str | None = None


VIDEOS = {
    "tide-clock-01": Video("Building a tide clock from scratch"),
    "hls": Video("Mending a net in one afternoon", sources=("tide-clock-hls/master.m3u8",)),
    "tied": Video("Three ways to row the same mile", sources=("tied/manifest.mpd",), seconds=4),
    "tied-above": Video("The same mile from the pier", seconds=4,
                        sources=("tied/manifest.mpd", "tied-above/manifest.mpd")),
    "no-h264": Video("The pier without its light", sources=("tied-above/manifest.mpd",), seconds=4),
    "slow": Video("A long way out on a slow line", slow=True),
    "silent": Video("Fog", silent=True),
    "long-title": Video(
        "Every harbour between the river mouth and the northern lighthouse, visited by rowing boat "
        "in one summer, with the people who keep them, the boats they mend, the weather they wait "
        "for and everything that went wrong on the way 🚣🏽‍♀️ (the third of twelve, uncut)",
        uploader="The Society for the Slow Exploration of Small Harbours and Their Inhabitants",
    ),
    "rtl": Video(
        "بناء ساعة المدّ والجزر من الصفر (الحلقة 3)", uploader="ورشة الميناء",
        description="ساعة تتبع البحر بدلًا من الشمس.",
    ),
    "private": Video("Members' evening", refusal="Private video"),
}

PAGE = """<!doctype html>
<html lang="en"><head><meta charset="utf-8"><title>{title}</title>{head}
<style>body{{font:16px/1.5 sans-serif;max-width:60rem;margin:2rem auto;padding:0 1rem}}
iframe,video{{width:100%;aspect-ratio:16/9;border:0;background:#10243f}}</style>
</head><body>
{body}
</body></html>
"""


def _page(title, body, head=""):
    return PAGE.format(title=html.escape(title), head=head, body=body)


def index():
    rows = "\n".join(f'<li><a dir="auto" href="/watch?v={name}">{html.escape(video.title)}</a></li>'
                     for name, video in VIDEOS.items())
    return _page("Sample videos", f"<h1>Sample videos</h1>\n<ul>\n{rows}\n</ul>")


def watch(name, video, base):
    """Says who made the video and where its player is.

    The player stands in a page of its own: a description that names a single file or manifest
    gives a downloader nothing else, and several can only be listed by a video element.
    """
    player = f"{base}/player/{name}"
    about = {
        "@context": "https://schema.org",
        "@type": "VideoObject",
        "name": video.title,
        "description": video.description,
        "author": {"@type": "Organization", "name": video.uploader},
        "uploadDate": "2024-05-18T08:00:00Z",
        "thumbnailUrl": f"{base}/media/tide-clock.jpg",
        "contentUrl": player,
        "duration": f"PT{video.seconds}S",
    }
    script = json.dumps(about, ensure_ascii=False).replace("<", "\\u003c")
    return _page(
        video.title,
        f'<iframe src="/player/{name}"></iframe>\n<h1 dir="auto">{html.escape(video.title)}</h1>\n'
        f'<p dir="auto">{html.escape(video.uploader)}</p>',
        f'<script type="application/ld+json">{script}</script>')


def player(video, base):
    media = f"{base}/{'slow-media' if video.slow else 'media'}"
    sources = "\n".join(f'<source src="{media}/{path}">' for path in video.sources)
    return _page(video.title,
                 f'<video controls poster="{base}/media/tide-clock.jpg">\n{sources}\n</video>')
