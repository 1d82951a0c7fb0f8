// One line of the inbox.

import {ageElement} from './ages.js';
import {archivedTag, shortName} from './applicationNames.js';
import {el, quoted} from './dom.js';
import {plural} from './format.js';
import {icon} from './icons.js';
import {address} from './router.js';
import {wasOpened} from './opened.js';
import {visible} from './text.js';

const summaryLength = 200; // characters; of a longer line the receiver keeps one more

export function buildRow(report, parameters) {
    const summary = visible(report.summary, summaryLength);
    const link = el('a.row', {href: address('reports', report.id, parameters), dataset: {id: report.id}},
        thumbnail(report),
        el('.row-text',
            el('.row-summary', {dir: 'auto', className: summary ? 'row-summary' : 'row-summary is-empty'}, summary || 'No description'),
            el('.row-facts', report.tester && el('span.cut', quoted(visible(report.tester, 80))), applicationName(report.bundle_id), archivedTag(report.bundle_id), inShort(report))),
        el('.row-version.cut', quoted(visible(report.app_version, 40))),
        el('.row-device.cut', quoted(visible([report.device, system(report)].filter(Boolean).join(', '), 60))),
        el('.row-files', report.files > 0 && el('span', {title: plural(report.files, 'attachment')}, icon('clip'), String(report.files))),
        el('.row-age', ageElement(report.received)));
    if (!wasOpened(report.id)) {
        link.classList.add('is-unread');
        link.prepend(el('span.off-screen', 'Unread'));
    }
    return el('li', link);
}

/// Version and device, where there is no room for columns of their own.
function inShort(report) {
    const words = [report.app_version, report.device].filter(Boolean).map((text) => visible(text, 40)).join(' · ');
    return words && el('span.row-short.cut', quoted(words));
}

/// A number alone says nothing: of a report without the system's name.
function system({os_version: version}) {
    return /^\d/.test(version) ? `OS ${version}` : version;
}

/// In two parts, for the end is what tells one from the other.
function applicationName(bundleId) {
    const end = shortName(bundleId);
    return el('span.bundle', {title: bundleId}, bundleId.endsWith('.' + end) && el('span.bundle-start', visible(bundleId.slice(0, -end.length), 200)), el('span.bundle-end', quoted(end)));
}

function thumbnail(report) {
    const frame = el('.thumb', {'aria-hidden': 'true'}, visible(report.bundle_id.split('.').at(-1), 20).slice(0, 1).toUpperCase());
    if (report.thumbnail)
        frame.replaceChildren(el('img', {src: `api/reports/${report.id}/thumbnail`, alt: '', loading: 'lazy', decoding: 'async',
            onerror: (event) => event.target.remove()}));
    return frame;
}
