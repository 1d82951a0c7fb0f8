// One line of the inbox.

import {ageElement} from './ages.js';
import {el, quoted} from './dom.js';
import {plural} from './format.js';
import {icon} from './icons.js';
import {address} from './router.js';
import {wasOpened} from './opened.js';
import {visible} from './text.js';

export function buildRow(report, parameters) {
    const summary = visible(report.summary, 200);
    const link = el('a.row', {href: address('reports', report.id, parameters), dataset: {id: report.id}},
        thumbnail(report),
        el('.row-text',
            el('.row-summary', {dir: 'auto', className: summary ? 'row-summary' : 'row-summary is-empty'}, summary || 'No description'),
            el('.row-facts', fact(report.tester), fact(report.bundle_id, 'bundle'))),
        el('.row-version.cut', quoted(visible(report.app_version, 40))),
        el('.row-device.cut', quoted(visible([report.device, report.os_version].filter(Boolean).join(', '), 60))),
        el('.row-files', report.files > 0 && el('span', {title: plural(report.files, 'attachment')}, icon('clip'), String(report.files))),
        el('.row-age', ageElement(report.received)));
    link.classList.toggle('is-unread', !wasOpened(report.id));
    return el('li', link);
}

function fact(text, className = '') {
    return text ? el('span', {className: `cut ${className}`}, quoted(visible(text, 80))) : null;
}

function thumbnail(report) {
    const frame = el('.thumb', {'aria-hidden': 'true'}, visible(report.bundle_id.split('.').at(-1), 20).slice(0, 1).toUpperCase());
    if (report.thumbnail)
        frame.replaceChildren(el('img', {src: `api/reports/${report.id}/thumbnail`, alt: '', loading: 'lazy', decoding: 'async',
            onerror: (event) => event.target.remove()}));
    return frame;
}
