// What is known of the applications everywhere: their names, and which of them are archived.

import {get} from './api.js';
import {el} from './dom.js';
import {visible} from './text.js';

const listeners = new Set();
let known = []; // as the receiver last told

export const knownApplications = () => known;

/// Called with every answer.
export function onApplications(listener, signal) {
    listeners.add(listener);
    signal?.addEventListener('abort', () => listeners.delete(listener));
}

/// They stay as they were when it rejects.
export async function refreshApplications(signal) {
    known = (await get('applications', signal)).applications;
    for (const listener of listeners)
        listener();
    for (const tag of document.querySelectorAll('[data-archived]'))
        tag.hidden = !isArchived(tag.dataset.archived);
}

function isArchived(bundleId) {
    return known.some((application) => application.bundle_id === bundleId && application.archived);
}

/// Seen while the application is archived.
export function archivedTag(bundleId) {
    return el('span.tag', {dataset: {archived: bundleId}, hidden: !isArchived(bundleId)}, 'archived');
}

/// The end of the bundle id, unless another application's ends likewise.
export function shortName(bundleId) {
    const end = bundleId.slice(bundleId.lastIndexOf('.'));
    const isShared = known.some((other) => other.bundle_id !== bundleId && other.bundle_id.endsWith(end));
    return visible(isShared || end.length <= 2 ? bundleId : end.replace('.', ''), 100);
}
