// Every application: what it has sent, whether it may go on, and how much of it is kept.

import {ageElement} from './ages.js';
import {change} from './api.js';
import {knownApplications, refreshApplications, shortName} from './applicationNames.js';
import {confirmDialog, formDialog} from './dialog.js';
import {el, failed, fill, quoted, refill, tableHead} from './dom.js';
import {emptyInbox} from './emptyInbox.js';
import {bytes, integer, plural} from './format.js';
import {say} from './notify.js';
import {address} from './router.js';
import {visible} from './text.js';

const mebibyte = 1024 * 1024;
const longest = 36500; // days, as the receiver takes them
const largest = 2 ** 33; // megabytes, likewise

export function showApplications({place, signal, applications: asked}) {
    document.title = 'Applications · Wexel';
    const content = el('.settings-content');
    fill(place, el('h1', 'Applications'), content);
    showWhen(asked);

    /// Never rejects: what was done before it is done.
    async function showWhen(answered) {
        try {
            await answered;
            show(knownApplications().toSorted((a, b) => (b.last_received ?? 0) - (a.last_received ?? 0)));
        } catch (error) {
            failed(content, error, () => showWhen(refreshApplications(signal)));
        }
    }

    function show(applications) {
        refill(content, applications.length === 0 ? emptyInbox() : el('.table-scroll', el('table.cards',
            tableHead('Application', 'Reports.number', 'Last one', 'Size.number', 'Kept', ''),
            el('tbody', applications.map(row)))));
    }

    function row(application) {
        const {bundle_id: bundleId, archived} = application;
        const turn = archived ? 'Unarchive' : 'Archive';
        const inbox = address('reports', null, new URLSearchParams({bundle_id: bundleId}));
        return el('tr', {className: archived ? 'is-off' : '', dataset: {key: bundleId}},
            el('th', {scope: 'row'}, el('a', {href: inbox}, quoted(visible(bundleId, 255))), archived && el('span.tag', 'archived')),
            el('td.number', {dataset: {name: 'Reports'}}, integer(application.reports)),
            el('td', {dataset: {name: 'Last one'}}, application.last_received ? ageElement(application.last_received, {words: true}) : 'none yet'),
            el('td.number', {dataset: {name: 'Size'}}, bytes(application.bytes)),
            el('td', {dataset: {name: 'Kept'}}, retentionText(application)),
            el('td.row-buttons', el('button.small', {type: 'button', 'aria-label': `Retention of ${named(bundleId)}`, onclick: () => editRetention(application, done)}, 'Retention'),
                el('button.small', {type: 'button', 'aria-label': `${turn} ${named(bundleId)}`,
                    onclick: () => archived ? unarchive(bundleId) : askToArchive(bundleId)}, turn)));
    }

    function askToArchive(bundleId) {
        confirmDialog({
            title: `Archive ${named(bundleId)}?`,
            text: 'It can’t send reports any more: its testers are told so. What it has sent stays here. You can unarchive it at any time.',
            button: 'Archive',
            danger: false,
            action: () => set(bundleId, 'archive', `Archived ${shortName(bundleId)}`),
        });
    }

    function unarchive(bundleId) {
        set(bundleId, 'unarchive', `${shortName(bundleId)} may report again`).then((reload) => reload(), (error) => say(error.message));
    }

    async function set(bundleId, what, words) {
        await change('POST', `applications/${encodeURIComponent(bundleId)}/${what}`);
        return done(words);
    }

    /// What to do once the question is off the page.
    function done(words) {
        say(words);
        return () => showWhen(refreshApplications(signal));
    }
}

const named = (bundleId) => visible(bundleId, 60);

function retentionText({max_age_days: days, max_bytes: size}) {
    return [days && plural(days, 'day'), size && `up to ${bytes(size)}`].filter(Boolean).join(', ') || 'everything';
}

function editRetention(application, done) {
    const days = el('input', {type: 'number', min: 1, max: longest, step: 1, id: 'days', value: application.max_age_days ?? ''});
    const size = el('input', {type: 'number', min: 1, max: largest, step: 'any', id: 'size', value: application.max_bytes ? application.max_bytes / mebibyte : ''});
    formDialog({
        title: `What is kept of ${named(application.bundle_id)}`,
        fields: [el('p', 'Reports beyond these limits are deleted for good, the oldest first. An empty field is no limit.'),
            el('label', {htmlFor: 'days'}, 'Days'), days,
            el('label', {htmlFor: 'size'}, 'Megabytes'), size],
        button: 'Save',
        async action() {
            await change('PUT', `applications/${encodeURIComponent(application.bundle_id)}/retention`, {
                max_age_days: days.value ? Math.round(days.valueAsNumber) : null,
                max_bytes: size.value ? Math.round(size.valueAsNumber * mebibyte) : null,
            });
            return done(`Saved what is kept of ${shortName(application.bundle_id)}`);
        },
    });
}
