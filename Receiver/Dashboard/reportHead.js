// The report's first words: what, who, where and when.

import {ageElement} from './ages.js';
import {el, quoted} from './dom.js';
import {asText, firstLine, mailtoLink, visible} from './text.js';

export function reportHead(answer, report) {
    const line = visible(firstLine(report.description), 160);
    const version = [asText(report.app_version), asText(report.build_version) && `(${asText(report.build_version)})`].filter(Boolean).join(' ');
    const system = [asText(report.device), asText(report.os_version)].filter(Boolean).join(', ');
    return el('header.report-head',
        el('h1', {dir: 'auto', className: line ? '' : 'is-empty'}, line || 'No description'),
        el('ul.report-facts',
            tester(asText(report.tester_email), `Your report: ${line}`),
            item('Application', visible(answer.bundle_id, 120)),
            item('Version', visible(version, 60)),
            item('View', visible(report.current_view, 80)),
            item('Device', visible(system, 80)),
            el('li', el('span.faint', 'Received'), ageElement(answer.received, {words: true}))));
}

function item(name, text) {
    return text ? el('li', el('span.faint', name), quoted(text)) : null;
}

function tester(address, subject) {
    if (!address)
        return null;
    const link = mailtoLink(address, subject);
    const shown = quoted(visible(address, 120));
    return el('li', el('span.faint', 'Tester'), link ? el('a', {href: link}, shown) : shown);
}
