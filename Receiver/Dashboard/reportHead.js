// The report's first words: what, who, where and when.

import {ageElement} from './ages.js';
import {archivedTag} from './applicationNames.js';
import {el, quoted} from './dom.js';
import {asText, firstLine, mailtoLink, visible} from './text.js';

export const mostHeading = 160; // characters

export function reportHead(answer, report) {
    const whole = firstLine(report.description);
    const line = visible(whole, mostHeading);
    const version = [asText(report.app_version), asText(report.build_version) && `(${asText(report.build_version)})`].filter(Boolean).join(' ');
    const system = [asText(report.device), asText(report.os_version)].filter(Boolean).join(', ');
    return el('header.report-head',
        el('h1', {dir: 'auto', className: !line ? 'is-empty' : whole.length > mostHeading ? 'is-clipped' : ''}, line || 'No description'),
        el('ul.report-facts',
            tester(asText(report.tester_email), `Your report: ${line}`),
            item('Application', visible(answer.bundle_id, 120), archivedTag(answer.bundle_id)),
            item('Version', visible(version, 60)),
            item('View', visible(report.current_view, 80)),
            item('Device', visible(system, 80)),
            el('li', el('span.faint', 'Received'), ageElement(answer.received, {words: true}))));
}

function item(name, text, tag = null) {
    return text ? el('li', el('span.faint', name), el('span', quoted(text), tag)) : null;
}

function tester(address, subject) {
    if (!address)
        return null;
    const link = mailtoLink(address, subject);
    const shown = quoted(visible(address, 120));
    return el('li', el('span.faint', 'Tester'), link ? el('a', {href: link}, shown) : shown);
}
